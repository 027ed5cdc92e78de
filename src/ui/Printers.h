#pragma once
// The printers the program offers, in the system's order, and one last
// virtual entry that writes a PDF file instead of printing. imp.ini keeps
// positions in this list.
//
// Tests give the system's list in advance:
//     Printers::setForTest({QStringLiteral("Aula 2")});  // {"Aula 2", "PDF (archivo)"}
//     Printers::setForTest({});                           // {"PDF (archivo)"}
//     Printers::reset();                                  // the system's printers again
#include <QString>
#include <QStringList>

class Printers {
public:
    // The device names of the system's printers, then pdfEntry().
    static QStringList available();
    static QString pdfEntry() { return QStringLiteral("PDF (archivo)"); }

    // Replaces the system's printers (not the virtual entry) until reset().
    static void setForTest(const QStringList& systemPrinters);
    static void reset();
};
