#include "utilities/ConfigLine.h"

#include "vb/RuntimeError.h"

#include <QSaveFile>

namespace utilities {

void EscribirLinea(const QString& path, const QString& line)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(line.toUtf8() + QByteArrayLiteral("\r\n"));
        if (file.commit())
            return;
    }
    throw RuntimeError(RuntimeError::PathNotFound,
                       QStringLiteral("No se pudo escribir '%1': %2").arg(path, file.errorString()));
}

QString printedNumber(qint64 value)
{
    return (value < 0 ? QString() : QStringLiteral(" ")) + QString::number(value) + u' ';
}

} // namespace utilities
