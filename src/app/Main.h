#pragma once
// The start routine of the program.
#include <QString>

// The command line after the program's name: its arguments joined by blanks.
QString Command();

// Reads the two colours, opens the session (AbrirConexion) and shows
// frmPrincipal, non-modal; the caller then runs the event loop. The whole
// command line "T" ends the start in the object-required run-time error after
// the session was opened, and no window is ever shown. Any RuntimeError goes
// to the run-time error handler: by default the box, then the end of the
// process.
void Main();
void Main(const QString& commandLine);
