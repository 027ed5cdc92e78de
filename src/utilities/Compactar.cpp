#include "utilities/Compactar.h"

#include "core/Modulo.h"
#include "ui/MsgBox.h"
#include "utilities/DatabaseCopy.h"
#include "vb/RuntimeError.h"
#include "vb/Vb.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

void Compactar()
{
    const QString origen = gRutaBD;
    const QString destino = RutaPrograma() + u'/' + gAno + QStringLiteral("/XestionC.mdb");
    if (QFile::exists(destino) && !QFile::remove(destino))
        utilities::pathNotFound(destino);
    if (gConexion)
        gConexion->Close();

    bool compactada = true;
    try {
        // The program folder holds no year folders unless it is the base folder too.
        QDir().mkpath(QFileInfo(destino).absolutePath());
        utilities::compactDatabaseFile(origen, destino);
    } catch (const RuntimeError&) {
        compactada = false;
    }
    if (!compactada) {
        // The title stands where the buttons go: converting it fails before
        // the box shows, and that failure ends the program.
        MsgBox(QStringLiteral("Compactación non completada. ") +
                   QStringLiteral("Asegúrese de que la BD no está abierta. ") + QStringLiteral("48"),
               vb::CInt(QStringLiteral("Error de Compactación")));
    }

    utilities::copyDatabaseFile(destino, origen);
    AbrirConexion();
}
