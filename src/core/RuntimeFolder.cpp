#include "core/RuntimeFolder.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

void ensureRuntimeFolder()
{
    if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return;
    const QString folder = QDir::tempPath() + QStringLiteral("/cadernia-runtime-%1").arg(::getuid());
    if (!QFileInfo::exists(folder) && !QDir().mkpath(folder))
        return;
    // Qt accepts only a folder that is the user's alone.
    QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder));
}
