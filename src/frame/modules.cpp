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
        const QString path = QDir(QCoreApplication::applicationDirPath())
                                 .filePath(QStringLiteral("../lib/studydesk/") + name + QStringLiteral(".so"));
        library = new QLibrary(QDir::cleanPath(path));
        library->setLoadHints(QLibrary::PreventUnloadHint);
        if (!library->load()) {
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
