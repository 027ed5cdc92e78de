// The row operations of FlexGrid (adding, removing, sorting, merging, binding)
// and the list fill that the list screens share.
#include "ui/FlexGrid.h"

#include "core/Modulo.h"
#include "db/Recordset.h"
#include "ui/Colors.h"
#include "vb/Vb.h"

#include <QCollator>

#include <algorithm>

namespace {

// The digits of a whole number, as QString::number writes them, without
// going through the locale machinery.
QString intText(int n)
{
    char16_t digits[12];
    int i = 12;
    unsigned u = n < 0 ? 0u - unsigned(n) : unsigned(n);
    do {
        digits[--i] = char16_t(u'0' + u % 10);
        u /= 10;
    } while (u);
    if (n < 0)
        digits[--i] = u'-';
    return QString(reinterpret_cast<const QChar*>(digits + i), 12 - i);
}

// The texts of the numbers of one column lately written: keys, types and
// groups repeat down a list.
class NumberTexts {
public:
    const QString& text(int n)
    {
        Slot& slot = slots_[unsigned(n) % kSlots];
        if (!slot.used || slot.number != n)
            slot = {true, n, intText(n)};
        return slot.text;
    }

private:
    static constexpr unsigned kSlots = 64;
    struct Slot {
        bool used = false;
        int number = 0;
        QString text;
    };
    Slot slots_[kSlots];
};

QString cellText(const QVariant& value, NumberTexts& numbers)
{
    // Texts and whole numbers, most of any list, without the general conversion.
    switch (value.typeId()) {
    case QMetaType::QString:
        return *static_cast<const QString*>(value.constData());
    case QMetaType::Int:
        return numbers.text(*static_cast<const int*>(value.constData()));
    default:
        return vb::IsNull(value) ? QString() : vb::CStr(value);
    }
}

} // namespace

void FlexGrid::AddItem(const QString& item, int row)
{
    if (row < 0)
        row = Rows();
    if (row < top() || row > Rows())
        raiseInvalidRow();
    insertLines(row, 1);
    const QStringList cells = item.split(u'\t');
    for (int c = 0; c < cells.size() && c < Cols(); ++c)
        setTextQuietly(row, c, cells[c]);
    announce(row, 0, row, Cols() - 1);
}

void FlexGrid::RemoveItem(int row)
{
    checkCell(row, 0);
    if (row >= top())
        removeLines(row, 1);
}

void FlexGrid::Sort(int col, bool ascending)
{
    checkCell(0, col);
    const int first = fixedRows_; // first row that moves
    if (Rows() - first < 2)
        return;
    struct Key {
        QString text;
        bool numeric;
        double number;
    };
    auto keyOf = [col](const Line& line) {
        const QString& text = line[col].text;
        const bool numeric = vb::IsNumeric(text);
        return Key{text, numeric, numeric ? vb::CDbl(text) : 0.0};
    };
    static const QCollator collator = [] {
        QCollator c(QLocale(QLocale::Spanish, QLocale::Spain));
        c.setCaseSensitivity(Qt::CaseInsensitive);
        return c;
    }();
    auto less = [](const Key& a, const Key& b) {
        if (a.numeric && b.numeric)
            return a.number < b.number;
        return collator.compare(a.text, b.text) < 0;
    };
    std::vector<std::pair<Key, Line>> moving;
    moving.reserve(Rows() - first);
    for (auto it = lines_.begin() + first; it != lines_.end(); ++it)
        moving.emplace_back(keyOf(*it), std::move(*it));
    std::stable_sort(moving.begin(), moving.end(), [&](const auto& a, const auto& b) {
        return ascending ? less(a.first, b.first) : less(b.first, a.first);
    });
    for (size_t i = 0; i < moving.size(); ++i)
        lines_[first + i] = std::move(moving[i].second);
    announce(first, 0, Rows() - 1, Cols() - 1);
}

void FlexGrid::mergeEqualCells(int col)
{
    checkCell(0, col);
    if (col < lead())
        return;
    const int c = col - lead();
    int r = fixedRows_;
    while (r < Rows()) {
        const QString text = TextMatrix(r, col);
        int end = r + 1;
        while (!text.isEmpty() && end < Rows() && TextMatrix(end, col) == text)
            ++end;
        if (rowSpan(r - top(), c) != end - r)
            setSpan(r - top(), c, end - r, 1);
        r = end;
    }
}

void FlexGrid::bindRecordset(db::Recordset& rs, int firstCol, bool rowNumbers)
{
    const int records = rs.RecordCount();
    const int fields = rs.FieldCount();
    const int saved = rs.AbsolutePosition();
    const bool wasRedraw = redraw_;
    setRedraw(false);
    setCols(fields + firstCol);
    setRows(records + 1);
    if (fixedRows_ == 0)
        setFixedRows(1);
    for (int f = 0; f < fields; ++f)
        setTextQuietly(0, firstCol + f, rs.FieldName(f));
    if (records > 0) {
        // Where the column sets the alignment, the text alone is written.
        std::vector<bool> aligned(static_cast<size_t>(fields));
        for (int f = 0; f < fields; ++f) {
            const int col = firstCol + f;
            aligned[size_t(f)] = (col < fixedCols_ ? fixedAlignment_ : colAlignment_).contains(col);
        }
        std::vector<NumberTexts> numbers(static_cast<size_t>(fields));
        NumberTexts rowTexts;
        for (int r = 1; r <= records; ++r) {
            if (rowNumbers)
                setTextQuietly(r, 0, rowTexts.text(r));
            Line& line = lines_[size_t(r)];
            for (int f = 0; f < fields; ++f) {
                const int col = firstCol + f;
                QString text = cellText(rs.ValueAt(r, f), numbers[size_t(f)]);
                if (aligned[size_t(f)] && r >= fixedRows_)
                    line[size_t(col)].text = std::move(text);
                else
                    setTextQuietly(r, col, text);
            }
        }
        // Where walking the records and coming back would leave it.
        rs.MoveFirst();
        if (saved >= 1)
            rs.SetAbsolutePosition(saved);
    }
    announceAll();
    setRedraw(wasRedraw);
}

namespace ui {

void stripeRows(FlexGrid& grid, int firstCol)
{
    const QColor even = colorFromVariant(gColor);
    const QColor odd = white();
    if (firstCol >= grid.Cols())
        return;
    for (int r = grid.FixedRows(); r < grid.Rows(); ++r)
        grid.setRangeBackColor(r, firstCol, r, grid.Cols() - 1, r % 2 == 0 ? even : odd);
}

void moveRecordsetToGridRow(const FlexGrid& grid, db::Recordset& rs)
{
    rs.SetAbsolutePosition(grid.RowSel());
}

} // namespace ui
