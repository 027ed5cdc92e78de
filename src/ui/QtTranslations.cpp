#include "ui/QtTranslations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace ui {

bool installQtTranslations()
{
    static QTranslator* installed = nullptr;
    if (installed)
        return true;
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (!translator->load(QStringLiteral("qtbase_es"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    QCoreApplication::installTranslator(translator);
    installed = translator;
    return true;
}

} // namespace ui
