// cadernia-start: what the desktop's menu runs. It finds the program's folder
// (its own when run in place, the user's data folder when installed), asks
// the first-start questions when that folder has no ruta.ini yet, and then
// starts the program from that folder, as the program expects (the print
// staging files are found through the relative path Impresion/).
//
// The program itself never asks: started without ruta.ini it ends in the
// run-time error of a missing configuration.
#include "core/ProgramFolder.h"
#include "core/RuntimeFolder.h"
#include "setup/FirstStart.h"
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>
#include <vector>

int main(int argc, char** argv)
{
    ensureRuntimeFolder();
    QByteArray program;
    QString folder;
    {
        GuardedApplication app(argc, argv);
        const QString binaryFolder = QCoreApplication::applicationDirPath();
        folder = core::programFolderFor(binaryFolder);
        program = QFile::encodeName(binaryFolder + QStringLiteral("/cadernia"));
        if (FirstStartDialog::needsFirstStart(folder)) {
            FirstStartDialog dialog(folder);
            if (dialog.showModal() != QDialog::Accepted)
                return 0;
        }
        if (!QDir::setCurrent(folder)) {
            MsgBox(QStringLiteral("No se puede abrir la carpeta del programa:\n") + folder, vbCritical);
            return 1;
        }
    }
    std::vector<char*> args{program.data()};
    for (int i = 1; i < argc; ++i)
        args.push_back(argv[i]);
    args.push_back(nullptr);
    ::execv(program.constData(), args.data());
    const QString why = QString::fromLocal8Bit(std::strerror(errno));
    fprintf(stderr, "cadernia-start: %s: %s\n", program.constData(), why.toLocal8Bit().constData());
    return 1;
}
