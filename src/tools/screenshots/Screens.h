#pragma once
// The screens that cadernia-screenshots renders, each by its file name and a
// factory that makes a new, unshown instance on the open session. A new
// screen adds one line to screens() in Screens.cpp.
#include <QList>
#include <QString>

#include <functional>

class QWidget;

namespace screenshots {

struct Screen {
    QString name;                   // OUTDIR/<name>.png
    std::function<QWidget*()> make; // shown non-modally by the tool, which activates it
    // When set, runs on the shown screen and opens a modal child there (an
    // entry form, say): the child is what is rendered, then closed.
    std::function<void(QWidget*)> open;
};

QList<Screen> screens();

// Page 1 of a student's printed record, staged as the sheet stages it, as
// OUTDIR/FichaAlumno-pdf.png (through pdftoppm); its path, or "" on failure.
QString studentRecordPage(const QString& outDir);

} // namespace screenshots
