#include "core/ui/FlexGrid.h"

#include "core/ui/Colors.h"
#include "core/vb/RuntimeError.h"
#include "core/vb/Vb.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace {

// The text as written, when it differs from the one displayed ("\r\n" shows as
// a line break).
constexpr int RawTextRole = Qt::UserRole + 1;

} // namespace

// A header whose thickness (the fixed column's width, the title row's height)
// can be set exactly instead of following its contents.
class FlexGridHeader : public QHeaderView {
public:
    using QHeaderView::QHeaderView;
    int extent = -1; // pixels; -1 follows the contents
    QSize sizeHint() const override
    {
        QSize size = QHeaderView::sizeHint();
        if (extent >= 0)
            (orientation() == Qt::Vertical ? size.rwidth() : size.rheight()) = extent;
        return size;
    }
};

FlexGrid::FlexGrid(QWidget* parent)
    : QTableWidget(parent), topHeader_(new FlexGridHeader(Qt::Horizontal, this)),
      leftHeader_(new FlexGridHeader(Qt::Vertical, this))
{
    setHorizontalHeader(topHeader_);
    setVerticalHeader(leftHeader_);
    for (QHeaderView* h : {static_cast<QHeaderView*>(topHeader_), static_cast<QHeaderView*>(leftHeader_)}) {
        h->setSectionsClickable(true);
        h->setHighlightSections(false);
        h->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        h->setTextElideMode(Qt::ElideNone);
        h->setMinimumSectionSize(0);
    }
    topHeader_->setDefaultSectionSize(64); // 960 twips, the grid's default width
    leftHeader_->setDefaultSectionSize(fontMetrics().height() + 6);
    leftHeader_->setSectionResizeMode(QHeaderView::Fixed);
    leftHeader_->extent = 64;
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
    setTabKeyNavigation(false); // Tab leaves the grid for the next control
    setTextElideMode(Qt::ElideNone);
    setWordWrap(false);
    setCornerButtonEnabled(false);

    auto headersFollow = [this] { ensureHeaderItems(); };
    connect(model(), &QAbstractItemModel::rowsInserted, this, headersFollow);
    connect(model(), &QAbstractItemModel::columnsInserted, this, headersFollow);
    connect(topHeader_, &QHeaderView::sectionClicked, this,
            [this](int section) { emit titleClicked(section + lead()); });
    connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int col, int oldRow, int oldCol) {
        if (row < 0 || col < 0)
            return;
        rowSel_ = row + top();
        colSel_ = col + lead();
        if (row != oldRow || col != oldCol)
            emit RowColChange();
    });
    setRowCount(1);
    setColumnCount(1);
}

FlexGrid::~FlexGrid() = default;

int FlexGrid::Rows() const
{
    return rowCount() + top();
}
int FlexGrid::Cols() const
{
    return columnCount() + lead();
}

void FlexGrid::setRows(int rows)
{
    rows = std::max(rows, 0);
    if (rows < fixedRows_)
        setFixedRows(rows);
    setRowCount(rows - top());
    restyleFixedCells();
}

void FlexGrid::setCols(int cols)
{
    cols = std::max(cols, 0);
    if (cols < fixedCols_)
        setFixedCols(cols);
    setColumnCount(cols - lead());
    for (auto it = colTwips_.cbegin(); it != colTwips_.cend(); ++it)
        if (it.key() < cols)
            applyColWidth(it.key());
    restyleFixedCells();
}

void FlexGrid::setFixedRows(int rows)
{
    rows = std::clamp(rows, 0, Rows());
    const int newTop = rows > 0 ? 1 : 0;
    if (newTop != top()) {
        if (newTop) { // body row 0 becomes the header
            for (int c = 0; c < columnCount(); ++c) {
                QTableWidgetItem* item = takeItem(0, c);
                setHorizontalHeaderItem(c, item ? item : new QTableWidgetItem);
            }
            if (lead())
                corner_.reset(takeVerticalHeaderItem(0));
            removeRow(0);
        } else { // the header becomes body row 0
            insertRow(0);
            for (int c = 0; c < columnCount(); ++c)
                setItem(0, c, takeHorizontalHeaderItem(c));
            if (lead())
                setVerticalHeaderItem(0, corner_ ? corner_.release() : new QTableWidgetItem);
        }
    }
    fixedRows_ = rows;
    updateHeaders();
    restyleFixedCells();
}

void FlexGrid::setFixedCols(int cols)
{
    cols = std::clamp(cols, 0, Cols());
    const int newLead = cols > 0 ? 1 : 0;
    if (newLead != lead()) {
        if (newLead) { // body column 0 becomes the header
            for (int r = 0; r < rowCount(); ++r) {
                QTableWidgetItem* item = takeItem(r, 0);
                setVerticalHeaderItem(r, item ? item : new QTableWidgetItem);
            }
            if (top())
                corner_.reset(takeHorizontalHeaderItem(0));
            removeColumn(0);
        } else { // the header becomes body column 0
            insertColumn(0);
            for (int r = 0; r < rowCount(); ++r)
                setItem(r, 0, takeVerticalHeaderItem(r));
            if (top())
                setHorizontalHeaderItem(0, corner_ ? corner_.release() : new QTableWidgetItem);
        }
    }
    fixedCols_ = cols;
    for (auto it = colTwips_.cbegin(); it != colTwips_.cend(); ++it)
        applyColWidth(it.key());
    updateHeaders();
    restyleFixedCells();
}

void FlexGrid::updateHeaders()
{
    topHeader_->setVisible(top() > 0);
    leftHeader_->setVisible(lead() > 0 && leftHeader_->extent != 0);
    ensureHeaderItems();
}

// Every header section gets an item: without one the header would show its
// section number instead of an empty cell.
void FlexGrid::ensureHeaderItems()
{
    for (int c = 0; c < columnCount(); ++c)
        if (!horizontalHeaderItem(c))
            setHorizontalHeaderItem(c, newItem(0, c + lead()));
    for (int r = 0; r < rowCount(); ++r)
        if (!verticalHeaderItem(r))
            setVerticalHeaderItem(r, newItem(r + top(), 0));
}

void FlexGrid::restyleFixedCells()
{
    for (int r = top(); r < fixedRows_ && r < Rows(); ++r)
        for (int c = lead(); c < Cols(); ++c)
            cellForWrite(r, c);
    for (int r = fixedRows_; r < Rows(); ++r)
        for (int c = lead(); c < fixedCols_ && c < Cols(); ++c)
            cellForWrite(r, c);
    for (int r = top(); r < Rows(); ++r)
        for (int c = lead(); c < Cols(); ++c)
            if (QTableWidgetItem* item = cell(r, c)) {
                const bool fixed = isFixed(r, c);
                item->setFlags(fixed ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
                if (fixed && item->background().style() == Qt::NoBrush)
                    item->setBackground(ui::buttonFace());
            }
}

void FlexGrid::raiseInvalidRow()
{
    throw RuntimeError(30009, QStringLiteral("Valor de Row no válido"));
}
void FlexGrid::raiseInvalidCol()
{
    throw RuntimeError(30010, QStringLiteral("Valor de Col no válido"));
}

void FlexGrid::checkCell(int row, int col) const
{
    if (row < 0 || row >= Rows())
        raiseInvalidRow();
    if (col < 0 || col >= Cols())
        raiseInvalidCol();
}

QTableWidgetItem* FlexGrid::cell(int row, int col) const
{
    checkCell(row, col);
    if (row < top() && col < lead())
        return corner_.get();
    if (row < top())
        return horizontalHeaderItem(col - lead());
    if (col < lead())
        return verticalHeaderItem(row - top());
    return item(row - top(), col - lead());
}

QTableWidgetItem* FlexGrid::newItem(int row, int col) const
{
    auto* item = new QTableWidgetItem;
    if (row >= top() && col >= lead()) {
        const bool fixed = isFixed(row, col);
        item->setFlags(fixed ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        if (fixed)
            item->setBackground(ui::buttonFace());
    }
    const auto& alignments = isFixed(row, col) ? fixedAlignment_ : colAlignment_;
    item->setTextAlignment(alignments.value(col, Qt::AlignLeft | Qt::AlignVCenter));
    return item;
}

QTableWidgetItem* FlexGrid::cellForWrite(int row, int col)
{
    if (QTableWidgetItem* existing = cell(row, col))
        return existing;
    QTableWidgetItem* item = newItem(row, col);
    attach(row, col, item);
    return item;
}

void FlexGrid::attach(int row, int col, QTableWidgetItem* item)
{
    if (row < top() && col < lead())
        corner_.reset(item);
    else if (row < top())
        setHorizontalHeaderItem(col - lead(), item);
    else if (col < lead())
        setVerticalHeaderItem(row - top(), item);
    else
        setItem(row - top(), col - lead(), item);
}

void FlexGrid::changeCell(int row, int col, const std::function<void(QTableWidgetItem*)>& change)
{
    QTableWidgetItem* existing = cell(row, col);
    if (!existing) {
        QTableWidgetItem* item = newItem(row, col);
        change(item);
        attach(row, col, item);
        return;
    }
    const bool title = existing != corner_.get() && (row < top() || col < lead());
    if (!title) {
        change(existing);
        return;
    }
    QTableWidgetItem* item = row < top() ? takeHorizontalHeaderItem(col - lead()) : takeVerticalHeaderItem(row - top());
    change(item);
    attach(row, col, item);
}

void FlexGrid::writeQuietly(int row1, int col1, int row2, int col2, const std::function<void()>& writes)
{
    QAbstractItemModel* m = model();
    const bool wasBlocked = m->blockSignals(true);
    auto announce = [&] {
        m->blockSignals(wasBlocked);
        if (wasBlocked || row2 < row1 || col2 < col1)
            return;
        // The body part of the block, then its titles.
        const int r1 = std::max(row1, top()) - top(), r2 = row2 - top();
        const int c1 = std::max(col1, lead()) - lead(), c2 = col2 - lead();
        if (r1 <= r2 && c1 <= c2)
            emit m->dataChanged(m->index(r1, c1), m->index(r2, c2));
        if (col1 < lead() && r1 <= r2)
            emit m->headerDataChanged(Qt::Vertical, r1, r2);
        if (row1 < top() && c1 <= c2)
            emit m->headerDataChanged(Qt::Horizontal, c1, c2);
    };
    try {
        writes();
    } catch (...) {
        announce();
        throw;
    }
    announce();
}

QString FlexGrid::TextMatrix(int row, int col) const
{
    const QTableWidgetItem* item = cell(row, col);
    if (!item)
        return {};
    const QVariant raw = item->data(RawTextRole);
    return raw.isValid() ? raw.toString() : item->text();
}

void FlexGrid::setTextMatrix(int row, int col, const QString& text)
{
    const auto& alignments = isFixed(row, col) ? fixedAlignment_ : colAlignment_;
    changeCell(row, col, [&](QTableWidgetItem* item) {
        if (text.contains(u'\r')) {
            item->setData(RawTextRole, text);
            item->setText(QString(text).replace(QLatin1String("\r\n"), QLatin1String("\n")).remove(u'\r'));
        } else {
            if (item->data(RawTextRole).isValid())
                item->setData(RawTextRole, QVariant());
            item->setText(text);
        }
        if (!alignments.contains(col) && !text.isEmpty())
            item->setTextAlignment(Qt::AlignVCenter | (vb::IsNumeric(text) ? Qt::AlignRight : Qt::AlignLeft));
    });
}

int FlexGrid::Row() const
{
    return currentRow() >= 0 ? currentRow() + top() : fixedRows_;
}
int FlexGrid::Col() const
{
    return currentColumn() >= 0 ? currentColumn() + lead() : fixedCols_;
}

void FlexGrid::setRow(int row)
{
    checkCell(row, 0);
    if (row < top())
        return;
    setCurrentCell(row - top(), std::max(Col() - lead(), 0));
    rowSel_ = row;
    colSel_ = Col();
}

void FlexGrid::setCol(int col)
{
    checkCell(0, col);
    if (col < lead() || rowCount() == 0)
        return;
    setCurrentCell(std::max(Row() - top(), 0), col - lead());
    rowSel_ = Row();
    colSel_ = col;
}

void FlexGrid::setRowSel(int row)
{
    checkCell(row, 0);
    rowSel_ = row;
    selectRange();
}

void FlexGrid::setColSel(int col)
{
    checkCell(0, col);
    colSel_ = col;
    selectRange();
}

void FlexGrid::selectRange()
{
    const int r1 = std::max(std::min(Row(), rowSel_) - top(), 0);
    const int r2 = std::max(Row(), rowSel_) - top();
    if (r2 < 0 || columnCount() == 0)
        return;
    const QItemSelection range(model()->index(r1, 0), model()->index(r2, columnCount() - 1));
    selectionModel()->select(range, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

int FlexGrid::TopRow() const
{
    const int row = rowAt(0);
    return (row >= 0 ? row : 0) + top();
}

void FlexGrid::setTopRow(int row)
{
    checkCell(row, 0);
    verticalScrollBar()->setValue(row - top());
}

double FlexGrid::twipsPerPixel(Qt::Orientation o) const
{
    const int dpi = o == Qt::Horizontal ? logicalDpiX() : logicalDpiY();
    return 1440.0 / (dpi > 0 ? dpi : 96);
}

int FlexGrid::twipsToPixels(int twips) const
{
    return qRound(twips / twipsPerPixel(Qt::Horizontal));
}
int FlexGrid::pixelsToTwips(int pixels) const
{
    return qRound(pixels * twipsPerPixel(Qt::Horizontal));
}

void FlexGrid::applyColWidth(int col)
{
    if (col >= Cols())
        return;
    const int pixels = twipsToPixels(colTwips_.value(col));
    if (col < lead()) {
        leftHeader_->extent = std::max(pixels, 0);
        updateHeaders();
        updateGeometries();
        return;
    }
    const int c = col - lead();
    setColumnHidden(c, pixels <= 0);
    if (pixels > 0)
        setColumnWidth(c, pixels);
}

int FlexGrid::ColWidth(int col) const
{
    checkCell(0, col);
    int pixels;
    if (col < lead())
        pixels = std::max(leftHeader_->extent, 0);
    else
        pixels = isColumnHidden(col - lead()) ? 0 : columnWidth(col - lead());
    const auto set = colTwips_.constFind(col);
    if (set != colTwips_.cend() && twipsToPixels(*set) == pixels)
        return *set;
    return pixelsToTwips(pixels);
}

void FlexGrid::setColWidth(int col, int twips)
{
    checkCell(0, col);
    colTwips_[col] = std::max(twips, 0);
    applyColWidth(col);
}

int FlexGrid::RowHeight(int row) const
{
    checkCell(row, 0);
    const int pixels = row < top() ? topHeader_->height() : rowHeight(row - top());
    return qRound(pixels * twipsPerPixel(Qt::Vertical));
}

void FlexGrid::setRowHeight(int row, int twips)
{
    checkCell(row, 0);
    const int pixels = qRound(std::max(twips, 0) / twipsPerPixel(Qt::Vertical));
    if (row < top()) {
        topHeader_->extent = pixels;
        updateGeometries();
    } else {
        QTableWidget::setRowHeight(row - top(), pixels);
    }
}

void FlexGrid::setRedraw(bool redraw)
{
    redraw_ = redraw;
    setUpdatesEnabled(redraw);
}

void FlexGrid::Clear()
{
    clear(); // items and header items; the shape stays
    corner_.reset();
    clearSpans();
    ensureHeaderItems();
    restyleFixedCells();
}

void FlexGrid::wheelEvent(QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    if (delta == 0) {
        QTableWidget::wheelEvent(event);
        return;
    }
    // One line per wheel message, whatever its size: up when the wheel turns away.
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(bar->value() + (delta > 0 ? -1 : 1));
    event->accept();
}

void FlexGrid::keyPressEvent(QKeyEvent* event)
{
    emit keyPressed(event->key(), event->modifiers());
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        emit EnterPressed();
        event->accept();
        return;
    }
    QTableWidget::keyPressEvent(event);
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableWidget::mouseDoubleClickEvent(event);
    emit DblClick();
}
