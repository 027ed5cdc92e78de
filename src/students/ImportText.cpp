#include "students/ImportText.h"

#include <QStringDecoder>

namespace students {

namespace {

// Windows-1252 differs from Latin-1 only in 0x80-0x9F; the five bytes it
// leaves undefined read as the control characters Latin-1 gives them.
constexpr char16_t kCp1252High[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString fromWindows1252(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        *out++ = QChar(b >= 0x80 && b < 0xA0 ? kCp1252High[b - 0x80] : char16_t(b));
    }
    return text;
}

} // namespace

QString decodeImportLine(QByteArrayView line)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(line);
    if (utf8.hasError())
        return fromWindows1252(line);
    return text;
}

QStringList importLines(const QByteArray& bytes)
{
    QStringList lines;
    qsizetype start = 0;
    const qsizetype n = bytes.size();
    while (start < n) {
        qsizetype end = bytes.indexOf('\n', start);
        if (end < 0)
            end = n;
        qsizetype stop = end;
        if (stop > start && bytes[stop - 1] == '\r')
            --stop;
        lines.append(decodeImportLine(QByteArrayView(bytes).sliced(start, stop - start)));
        start = end + 1;
    }
    return lines;
}

} // namespace students
