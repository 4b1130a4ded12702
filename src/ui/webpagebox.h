#pragma once

#include <QTextBrowser>

namespace sd {

/// Shows one of our local .htm pages with its pictures. Links to other local pages and
/// anchors are followed; links off our pages are reported, never opened.
class WebPageBox : public QTextBrowser
{
    Q_OBJECT

public:
    explicit WebPageBox(QWidget *parent = nullptr);

    /// False, with the box left empty, when the file is missing or cannot be read.
    bool loadFile(const QString &path);
    QString currentFile() const { return m_file; }

Q_SIGNALS:
    /// A web or mail link was clicked; the page stays as it is.
    void externalLinkClicked(const QUrl &url);

private:
    void followLink(const QUrl &url);

    QString m_file;
};

} // namespace sd
