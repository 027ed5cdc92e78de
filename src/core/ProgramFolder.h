#pragma once
// Where the program keeps the files it reads from "its folder": ruta.ini,
// ano.ini, imp.ini, the colour files and Impresion/.
//
// A copy run in place (a build folder, a copy unpacked by hand) keeps them
// in its own folder. An installed copy cannot, or must not, write beside its
// binary: there each user of the computer gets a folder of their own, the
// program's data folder (QStandardPaths::AppDataLocation of "cadernia",
// usually ~/.local/share/cadernia).
#include <QString>

namespace core {

// The user's data folder for the program, whichever of our executables asks.
QString userProgramFolder();

// True when `binaryFolder` is the bin/ of an installed tree: our data folder
// (share/cadernia) stands beside it.
bool isInstalledBinaryFolder(const QString& binaryFolder);

// The program folder for a program file in `binaryFolder`: that folder when
// it is writable and not an installed tree, otherwise userProgramFolder().
// The folder returned may not exist yet.
QString programFolderFor(const QString& binaryFolder);

} // namespace core
