#include "ui/webpagebox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace sd {

WebPageBox::WebPageBox(QWidget *parent)
    : QTextBrowser(parent)
{
    // We decide where a click goes: QTextBrowser would happily leave our pages.
    setOpenLinks(false);
    setOpenExternalLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &WebPageBox::followLink);
}

bool WebPageBox::loadFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        clear();
        m_file.clear();
        return false;
    }
    const QByteArray bytes = file.readAll();
    // Pages saved by old editors are in Windows-1252 and often say nothing about it.
    QStringDecoder decoder = QStringDecoder::decoderForHtml(bytes);
    QString html = decoder.isValid() ? decoder.decode(bytes) : QString();
    if (!decoder.isValid() || decoder.hasError())
        html = QStringDecoder("windows-1252").decode(bytes);

    const QFileInfo info(path);
    m_file = info.absoluteFilePath();
    setSearchPaths({info.absolutePath()});
    document()->setBaseUrl(QUrl::fromLocalFile(info.absolutePath() + u'/'));
    setHtml(html);
    return true;
}

void WebPageBox::followLink(const QUrl &url)
{
    if (url.isRelative() && url.path().isEmpty() && url.hasFragment()) {
        scrollToAnchor(url.fragment());
        return;
    }
    if (url.scheme().isEmpty() || url.isLocalFile()) {
        const QUrl target = QUrl::fromLocalFile(m_file).resolved(url);
        if (target.isLocalFile() && QFileInfo(target.toLocalFile()).isFile()) {
            if (loadFile(target.toLocalFile()) && target.hasFragment())
                scrollToAnchor(target.fragment());
            return;
        }
    }
    Q_EMIT externalLinkClicked(url);
}

} // namespace sd
