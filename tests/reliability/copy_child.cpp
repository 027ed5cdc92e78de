// cadernia-copy-child MODE SOURCE DESTINATION
//
// Makes one copy as the backup screen does and waits to be killed: MODE
// "backup" copies the year file SOURCE to the file DESTINATION, "restore"
// copies the folder SOURCE over the year folder DESTINATION. Each page of
// the copy waits a moment, so that a kill lands inside it. Prints "done"
// when the copy has returned.
#include "utilities/DatabaseCopy.h"
#include "vb/RuntimeError.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 4)
        return 2;
    utilities::setBackupStepHook([] { QThread::usleep(3000); }, 1);
    try {
        if (args[1] == QLatin1String("backup"))
            utilities::copyDatabaseFile(args[2], args[3]);
        else
            utilities::copyFolder(args[2], args[3]);
    } catch (const RuntimeError& e) {
        std::fprintf(stderr, "%s\n", qPrintable(e.Description()));
        return 1;
    }
    std::printf("done\n");
    std::fflush(stdout);
    return 0;
}
