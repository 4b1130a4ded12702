#pragma once

#include <QTextBrowser>

namespace sd {

/// Shows one of our local .htm pages with its pictures. Pages, pictures and links come only from the
/// page's own data directory: links to other pages there and anchors are followed; anything else
/// (other folders, the network) is reported, never opened or loaded.
class WebPageBox : public QTextBrowser
{
    Q_OBJECT

public:
    explicit WebPageBox(QWidget *parent = nullptr);

    /// False, with the box left empty, when the file is missing or cannot be read.
    bool loadFile(const QString &path);
    /// Loads `name` from the data directory `dataDir` through the data-file resolver.
    bool loadDataFile(const QString &dataDir, const QString &name);
    QString currentFile() const { return m_file; }
    /// As RichTextBox::setTextScale.
    void setTextScale(qreal factor);

protected:
    QVariant loadResource(int type, const QUrl &name) override;

Q_SIGNALS:
    /// A web or mail link was clicked; the page stays as it is.
    void externalLinkClicked(const QUrl &url);

private:
    void followLink(const QUrl &url);
    /// The name inside the page's directory that a local URL points at; empty when it points elsewhere.
    QString localName(const QUrl &url) const;
    bool show(const QString &path, const QString &root);

    QString m_file;
    QString m_root;
    qreal m_textScale = 1.0;
};

} // namespace sd
