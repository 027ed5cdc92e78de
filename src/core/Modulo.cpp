#include "core/Modulo.h"

#include "core/ProgramFolder.h"
#include "db/OnlineCopy.h"
#include "vb/RuntimeError.h"

#include <QCoreApplication>
#include <QFile>

db::ConnectionPtr gConexion;
QString gRutaBase;
QString gAno;
QString gRutaBD;
QString gRutaInformes;
QVariant gColor;
QVariant gColor2;
QVariant CodigoAtopado;
qint32 gFilaActual = 0;
QString gAtopar;

namespace {
QString gProgramFolder;
}

QString mainWindowCaption()
{
    return QStringLiteral("CADERNIA ## Curso ") + gAno;
}

QString RutaPrograma()
{
    // Decided once: the program's own folder, or the user's folder of an
    // installed copy (core/ProgramFolder.h).
    if (gProgramFolder.isEmpty())
        gProgramFolder = core::programFolderFor(QCoreApplication::applicationDirPath());
    return gProgramFolder;
}

void SetRutaPrograma(const QString& folder)
{
    gProgramFolder = folder;
}

std::optional<QString> LeerLinea(const QString& path, int line)
{
    QFile f(path);
    if (!f.exists())
        return std::nullopt;
    if (!f.open(QIODevice::ReadOnly))
        throw RuntimeError(RuntimeError::PathNotFound,
                           QStringLiteral("No se puede abrir '%1': %2").arg(path, f.errorString()));
    QByteArray text;
    for (int i = 0; i < line; ++i) {
        if (f.atEnd())
            throw RuntimeError(RuntimeError::InputPastEndOfFile,
                               QStringLiteral("La entrada pasa del final del archivo ('%1')").arg(path));
        text = f.readLine();
    }
    if (text.endsWith('\n'))
        text.chop(1);
    if (text.endsWith('\r'))
        text.chop(1);
    return QString::fromUtf8(text);
}

QString LeerRuta()
{
    return LeerLinea(RutaPrograma() + QStringLiteral("/ruta.ini"), 1).value_or(QString());
}

QString LeerAno()
{
    return LeerLinea(RutaPrograma() + QStringLiteral("/ano.ini"), 1).value_or(QString());
}

static QVariant optionalLine(const QString& file, int line)
{
    const auto text = LeerLinea(RutaPrograma() + u'/' + file, line);
    return text ? QVariant(*text) : QVariant();
}

QVariant LeerColor()
{
    return optionalLine(QStringLiteral("color.ini"), 1);
}

QVariant LeerColor2()
{
    return optionalLine(QStringLiteral("color2.ini"), 1);
}

QVariant LeerImpresora(int& n)
{
    return optionalLine(QStringLiteral("imp.ini"), n == 0 ? 1 : 2);
}

void AbrirConexion()
{
    gRutaBase = LeerRuta();
    gAno = LeerAno();
    gRutaBD = gRutaBase + u'/' + gAno + QStringLiteral("/Xestion.mdb");
    gRutaInformes = gRutaBase + QStringLiteral("/Informes");
    gConexion = db::Connection::Open(gRutaBD);
    // What copies killed half way left beside the year.
    db::OnlineCopy::RemoveStaleTemporaries(gRutaBD);
}
