#include "modules.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QLibrary>

namespace sd {

QFunctionPointer moduleFunction(const char *module, const char *function, QString *error)
{
    // Loaded once and never unloaded: objects made by a module live until the program ends.
    static QHash<QString, QLibrary *> loaded;
    const QString name = QString::fromLatin1(module);
    QLibrary *library = loaded.value(name);
    if (!library) {
        // Beside the program in a build folder; in lib/<arch>/studydesk once installed.
        library = new QLibrary;
        library->setLoadHints(QLibrary::PreventUnloadHint);
        const QDir programDir(QCoreApplication::applicationDirPath());
        for (const QString &dir : {programDir.path(), programDir.filePath(QStringLiteral(STUDYDESK_MODULE_DIR))}) {
            library->setFileName(QDir(dir).filePath(name));
            if (library->load())
                break;
        }
        if (!library->isLoaded()) {
            if (error)
                *error = library->errorString();
            delete library;
            return nullptr;
        }
        loaded.insert(name, library);
    }
    const QFunctionPointer f = library->resolve(function);
    if (!f && error)
        *error = library->errorString();
    return f;
}

} // namespace sd
