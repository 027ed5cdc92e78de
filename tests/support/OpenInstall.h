#pragma once
// A temporary installation (see TempInstall) opened as the program opens it:
// the program folder set and the session on its year. Going, it closes the
// session and forgets the folder.
#include "core/Modulo.h"
#include "support/TempInstall.h"

class OpenInstall : public TempInstall {
public:
    explicit OpenInstall(const QString& yearName = QStringLiteral("2025-26")) : TempInstall(yearName)
    {
        SetRutaPrograma(program());
        AbrirConexion();
    }
    ~OpenInstall()
    {
        gConexion.reset();
        SetRutaPrograma(QString());
    }
};
