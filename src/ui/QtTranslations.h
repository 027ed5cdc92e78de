#pragma once
// Qt's own texts (the buttons of the file, colour, print and page-setup
// dialogs, the print preview's toolbar, the context menu of a text field)
// in Spanish, like the rest of the program, from the qtbase_es catalogue of
// the system's Qt (Debian: qt6-translations-l10n).
namespace ui {

// Installs the catalogue once per process; false when it is not there, and
// Qt then speaks English.
bool installQtTranslations();

} // namespace ui
