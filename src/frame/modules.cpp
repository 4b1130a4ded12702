#include "modules.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>

namespace sd {

QFunctionPointer moduleFunction(const char *module, const char *function, QString *error)
{
    // Never unloaded: objects made by a module live until the program ends. A module loaded before
    // is found again at once, as the system keeps it.
    QLibrary library;
    library.setLoadHints(QLibrary::PreventUnloadHint);
    // Beside the program in a build folder; in lib/<arch>/studydesk once installed.
    const QDir programDir(QCoreApplication::applicationDirPath());
    for (const QString &dir : {programDir.path(), programDir.filePath(QStringLiteral(STUDYDESK_MODULE_DIR))}) {
        library.setFileName(QDir(dir).filePath(QString::fromLatin1(module)));
        if (library.load())
            break;
    }
    const QFunctionPointer f = library.isLoaded() ? library.resolve(function) : nullptr;
    if (!f && error)
        *error = library.errorString();
    return f;
}

} // namespace sd
