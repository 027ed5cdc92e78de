// cadernia: the class book. Start it from its own folder: the print staging
// files are found through the relative path Impresion/.
#include "app/Main.h"
#include "core/RuntimeFolder.h"
#include "ui/RuntimeErrorBox.h"

int main(int argc, char** argv)
{
    ensureRuntimeFolder();
    GuardedApplication app(argc, argv);
    Main();
    return app.exec();
}
