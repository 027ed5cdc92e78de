#include "ui/Printers.h"

#include <QPrinterInfo>

#include <optional>

namespace {

std::optional<QStringList>& forTest()
{
    static std::optional<QStringList> printers;
    return printers;
}

} // namespace

QStringList Printers::available()
{
    QStringList names = forTest() ? *forTest() : QPrinterInfo::availablePrinterNames();
    names.append(pdfEntry());
    return names;
}

void Printers::setForTest(const QStringList& systemPrinters)
{
    forTest() = systemPrinters;
}

void Printers::reset()
{
    forTest().reset();
}
