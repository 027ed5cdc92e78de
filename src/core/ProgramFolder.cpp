#include "core/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace core {

QString userProgramFolder()
{
    // AppDataLocation depends on the asking executable's name; the launcher
    // and the installer must find the same folder as the program.
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/cadernia");
}

bool isInstalledBinaryFolder(const QString& binaryFolder)
{
    return QFileInfo(binaryFolder + QStringLiteral("/../share/cadernia")).isDir();
}

QString programFolderFor(const QString& binaryFolder)
{
    const QString folder = QDir::cleanPath(QDir(binaryFolder).absolutePath());
    // Root may write anywhere, so writability alone does not tell an
    // installed copy from one run in place.
    if (QFileInfo(folder).isWritable() && !isInstalledBinaryFolder(folder))
        return folder;
    return userProgramFolder();
}

} // namespace core
