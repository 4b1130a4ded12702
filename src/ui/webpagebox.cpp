#include "ui/webpagebox.h"

#include "ui/files/datapath.h"
#include "ui/richtextbox.h"
#include "ui/rtf/rtfreader.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
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
    setCursorWidth(0); // text to read: no blinking cursor
    connect(this, &QTextBrowser::anchorClicked, this, &WebPageBox::followLink);
}

bool WebPageBox::loadFile(const QString &path)
{
    const QFileInfo info(path);
    const DataPath p = resolveDataFile(info.absolutePath(), info.fileName());
    return show(p.ok() ? p.path : QString(), QFileInfo(info.absolutePath()).canonicalFilePath());
}

bool WebPageBox::loadDataFile(const QString &dataDir, const QString &name)
{
    const DataPath p = resolveDataFile(dataDir, name);
    return show(p.ok() ? p.path : QString(), QFileInfo(dataDir).canonicalFilePath());
}

bool WebPageBox::show(const QString &path, const QString &root)
{
    const FileBytes file = path.isEmpty() ? FileBytes{{}, FileRefusal::Missing, {}} : readBounded(path, MaxTextBytes);
    if (!file.ok()) {
        clear();
        m_file.clear();
        m_root.clear();
        return false;
    }
    const QByteArray &bytes = file.bytes;
    // Pages saved by old editors are in Windows-1252 and often say nothing about it.
    QStringDecoder decoder = QStringDecoder::decoderForHtml(bytes);
    QString html = decoder.isValid() ? decoder.decode(bytes) : QString();
    if (!decoder.isValid() || decoder.hasError())
        html = QStringDecoder("windows-1252").decode(bytes);

    m_file = path;
    m_root = root;
    setSearchPaths({root});
    document()->setBaseUrl(QUrl::fromLocalFile(root + u'/'));
    setHtml(html);
    if (!qFuzzyCompare(m_textScale, 1.0))
        scaleDocumentText(document(), m_textScale);
    return true;
}

void WebPageBox::setTextScale(qreal factor)
{
    if (qFuzzyCompare(factor, m_textScale))
        return;
    m_textScale = factor;
    scaleDocumentText(document(), factor);
}

QString WebPageBox::localName(const QUrl &url) const
{
    if (m_root.isEmpty() || !(url.scheme().isEmpty() || url.isLocalFile()))
        return QString();
    const QString path = url.isLocalFile() ? url.toLocalFile() : url.path();
    if (path.isEmpty())
        return QString();
    const QFileInfo info(QDir(m_root).filePath(path));
    // Only names in the page's own directory; the resolver then checks links and the file itself.
    if (QDir::cleanPath(info.absolutePath()) != m_root)
        return QString();
    return info.fileName();
}

QVariant WebPageBox::loadResource(int type, const QUrl &name)
{
    // A refusal is an empty resource, not an invalid one: the document would read the file itself.
    const QVariant refused = type == QTextDocument::ImageResource ? QVariant(QImage()) : QVariant(QByteArray());
    const QString local = localName(name);
    if (local.isEmpty())
        return refused; // never the network, never another folder
    const FileBytes file = readDataFile(m_root, local, MaxRtfBytes);
    if (!file.ok())
        return refused;
    if (type == QTextDocument::ImageResource) {
        const QImage image = rtf::decodePicture(file.bytes);
        return image.isNull() ? refused : QVariant(image);
    }
    if (type == QTextDocument::StyleSheetResource)
        return file.bytes;
    return refused;
}

void WebPageBox::followLink(const QUrl &url)
{
    if (url.isRelative() && url.path().isEmpty() && url.hasFragment()) {
        scrollToAnchor(url.fragment());
        return;
    }
    const QString local = localName(QUrl::fromLocalFile(m_file).resolved(url));
    if (!local.isEmpty() && resolveDataFile(m_root, local).ok()) {
        if (loadDataFile(m_root, local) && url.hasFragment())
            scrollToAnchor(url.fragment());
        return;
    }
    Q_EMIT externalLinkClicked(url);
}

} // namespace sd
