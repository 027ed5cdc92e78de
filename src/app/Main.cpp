#include "app/Main.h"

#include "app/frmPrincipal.h"
#include "core/Modulo.h"
#include "ui/RuntimeErrorBox.h"

#include <QCoreApplication>
#include <QStringList>

QString Command()
{
    return QCoreApplication::arguments().mid(1).join(u' ');
}

void Main()
{
    Main(Command());
}

void Main(const QString& commandLine)
{
    ui::guardRuntime([&] {
        gColor = LeerColor();
        gColor2 = LeerColor2();
        AbrirConexion();
        if (commandLine == QLatin1String("T")) {
            // "T" shows a form that was never created: the object is missing.
            throw RuntimeError(RuntimeError::ObjectRequired, QStringLiteral("Se requiere un objeto"));
        }
        frmPrincipal* principal = frmPrincipal::instance();
        if (!principal)
            principal = new frmPrincipal;
        principal->show();
    });
}
