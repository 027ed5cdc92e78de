// The one-line configuration files beside the program. The input is written
// whole as each of ruta.ini, ano.ini, color.ini, color2.ini and imp.ini in the
// scratch folder, taken as the program's folder, then each reader runs, followed by the
// conversion its callers apply (a colour text to a Long, an imp.ini line to
// an Integer printer position). A RuntimeError is a normal answer (an empty
// file read past its end, a number that overflows, a text that is no number).
#include "FuzzYear.h"
#include "core/Modulo.h"
#include "vb/RuntimeError.h"
#include "vb/Vb.h"

#include <QFile>

#include <cstdlib>

namespace {

template <typename F>
void normalAnswer(F&& read)
{
    try {
        read();
    } catch (const RuntimeError&) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QString folder = [] {
        SetRutaPrograma(fuzz::scratchFolder());
        return fuzz::scratchFolder();
    }();
    for (const char* name : {"ruta.ini", "ano.ini", "color.ini", "color2.ini", "imp.ini"}) {
        QFile f(folder + u'/' + QLatin1String(name));
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            f.write(reinterpret_cast<const char*>(data), qint64(size)) != qint64(size))
            std::abort();
    }
    normalAnswer([] { (void)LeerRuta(); });
    normalAnswer([] { (void)LeerAno(); });
    normalAnswer([] { (void)vb::CLng(LeerColor()); });
    normalAnswer([] { (void)vb::CLng(LeerColor2()); });
    for (int which : {0, 1})
        normalAnswer([which] {
            int line = which;
            const QVariant stored = LeerImpresora(line);
            if (stored.isValid())
                (void)vb::CInt(stored);
        });
    return 0;
}
