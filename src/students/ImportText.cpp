#include "students/ImportText.h"

#include "db/Recordset.h"
#include "vb/RuntimeError.h"

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

// The position of the first `mark` from `start` on, both counted from 1; 0
// when there is none (also when start lies past the end).
qsizetype posicion(qsizetype start, const QString& text, QChar mark)
{
    return text.indexOf(mark, start - 1) + 1;
}

QString untilNul(const QString& field)
{
    const qsizetype nul = field.indexOf(QChar(0));
    return nul < 0 ? field : field.left(nul);
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
    // A file saved as UTF-16 says so by its byte-order mark; it is read
    // whole as such, and split at its line ends like any other.
    const bool utf16le = bytes.startsWith("\xFF\xFE"), utf16be = bytes.startsWith("\xFE\xFF");
    if (utf16le || utf16be) {
        QStringDecoder utf16(utf16le ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
        const QString text = utf16.decode(QByteArrayView(bytes).sliced(2));
        qsizetype start = 0;
        while (start < text.size()) {
            qsizetype end = start;
            while (end < text.size() && text[end] != u'\n' && text[end] != u'\r')
                ++end;
            lines.append(text.mid(start, end - start));
            start = end + (end + 1 < text.size() && text[end] == u'\r' && text[end + 1] == u'\n' ? 2 : 1);
        }
        return lines;
    }
    // A line ends at LF, CR LF or a CR alone (lists exported on old Macs).
    const qsizetype n = bytes.size();
    qsizetype start = bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    while (start < n) {
        qsizetype end = start;
        while (end < n && bytes[end] != '\n' && bytes[end] != '\r')
            ++end;
        lines.append(decodeImportLine(QByteArrayView(bytes).sliced(start, end - start)));
        start = end + (end + 1 < n && bytes[end] == '\r' && bytes[end + 1] == '\n' ? 2 : 1);
    }
    return lines;
}

void importStudents(db::Recordset& alumnos, const QStringList& lines, const QVariant& group)
{
    for (const QString& line : lines) {
        const qsizetype p1 = posicion(1, line, u'#');
        alumnos.AddNew();
        if (p1 > 1)
            alumnos.Fields(QStringLiteral("Id")) = untilNul(line.left(p1 - 1));
        const qsizetype p2 = posicion(p1 + 1, line, u'#');
        if (p2 - p1 - 1 > 0)
            alumnos.Fields(QStringLiteral("Ape")) = untilNul(line.mid(p1, p2 - p1 - 1));
        const qsizetype p3 = posicion(p2 + 1, line, u'#');
        if (p3 - p2 - 1 > 0)
            alumnos.Fields(QStringLiteral("Nom")) = untilNul(line.mid(p2, p3 - p2 - 1));
        alumnos.Fields(QStringLiteral("Grupo")) = group;
        // The key comes only from the file, never numbered by the engine.
        if (p1 <= 1) {
            alumnos.CancelUpdate();
            throw RuntimeError(RuntimeError::DatabaseError,
                               QStringLiteral("El índice o la clave principal no puede contener un valor Null."));
        }
        alumnos.Update();
    }
}

} // namespace students
