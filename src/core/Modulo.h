#pragma once
// The session globals and the configuration readers. Configuration lives only
// in one-line text files: ruta.ini, ano.ini, color.ini, color2.ini and imp.ini
// beside the program (and color files under the base folder).
#include "db/Connection.h"

#include <QString>
#include <QVariant>
#include <optional>

extern db::ConnectionPtr gConexion; // the open session on the year's Xestion.mdb
extern QString gRutaBase;           // base folder: line 1 of ruta.ini
extern QString gAno;                // year folder name: line 1 of ano.ini
extern QString gRutaBD;             // gRutaBase/gAno/Xestion.mdb
extern QString gRutaInformes;       // gRutaBase/Informes
extern QVariant gColor;             // first colour: text as read, or a number after the colour screen
extern QVariant gColor2;            // second colour
extern QVariant CodigoAtopado;      // student chosen in the search, or the key kept across a refill
extern qint32 gFilaActual;          // grid row kept across a refill; 0 when idle
extern QString gAtopar;

// The caption of the main window, "CADERNIA ## Curso " and the year; the
// reports print it as the school's line.
QString mainWindowCaption();

// The program's folder: the folder of the program file, or for an installed
// copy the user's own (core/ProgramFolder.h). Tests and tools may point it
// elsewhere; an empty folder decides it again.
QString RutaPrograma();
void SetRutaPrograma(const QString& folder);

// First line of the file, or "" when the file does not exist. An empty file
// is read past its end: RuntimeError 62.
QString LeerRuta();
QString LeerAno();
// First line as text, or an empty variant when the file does not exist.
QVariant LeerColor();
QVariant LeerColor2();
// imp.ini: line 1 when n is 0, line 2 otherwise; empty when there is no file.
QVariant LeerImpresora(int& n);

// Forms the paths from ruta.ini and ano.ini and replaces gConexion by a new
// open connection. The previous one is not closed here: it goes when the last
// reference to it goes.
void AbrirConexion();

// Reads line `line` (1-based) of a configuration file; nullopt when missing.
// Shared by the readers above and by the screens that read imp.ini.
std::optional<QString> LeerLinea(const QString& path, int line);
