#include "ui/FlexGrid.h"

#include "ui/Colors.h"
#include "vb/RuntimeError.h"
#include "vb/Vb.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyleOptionViewItem>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>

// The grid's cells as the view sees them: the body holds the non-header
// cells, the horizontal header row 0 and the vertical header column 0.
class FlexGridModel : public QAbstractTableModel {
public:
    explicit FlexGridModel(FlexGrid* grid) : QAbstractTableModel(grid), grid_(grid) {}

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : int(grid_->lines_.size()) - grid_->top();
    }
    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : grid_->cols_ - grid_->lead();
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        return grid_->cellData(index.row() + grid_->top(), index.column() + grid_->lead(), role);
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        const bool shown = orientation == Qt::Horizontal ? grid_->top() > 0 : grid_->lead() > 0;
        if (!shown)
            return role == Qt::DisplayRole ? QVariant(QString()) : QVariant();
        if (orientation == Qt::Horizontal)
            return grid_->cellData(0, section + grid_->lead(), role);
        return grid_->cellData(section + grid_->top(), 0, role);
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        if (!index.isValid())
            return Qt::NoItemFlags;
        return grid_->isFixed(index.row() + grid_->top(), index.column() + grid_->lead())
                   ? Qt::ItemIsEnabled
                   : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    }

    // The first row (Qt::Vertical) or column leaves the body for its header,
    // or comes back from it, while `change` sets the grid's fixed count.
    template <typename Change>
    void moveFirst(Qt::Orientation orientation, bool toHeader, Change change)
    {
        const bool rows = orientation == Qt::Vertical;
        if (toHeader)
            rows ? beginRemoveRows({}, 0, 0) : beginRemoveColumns({}, 0, 0);
        else
            rows ? beginInsertRows({}, 0, 0) : beginInsertColumns({}, 0, 0);
        change();
        if (toHeader)
            rows ? endRemoveRows() : endRemoveColumns();
        else
            rows ? endInsertRows() : endInsertColumns();
    }

    using QAbstractTableModel::beginInsertColumns;
    using QAbstractTableModel::beginInsertRows;
    using QAbstractTableModel::beginRemoveColumns;
    using QAbstractTableModel::beginRemoveRows;
    using QAbstractTableModel::endInsertColumns;
    using QAbstractTableModel::endInsertRows;
    using QAbstractTableModel::endRemoveColumns;
    using QAbstractTableModel::endRemoveRows;

private:
    FlexGrid* grid_;
};

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

size_t FlexGrid::FormatHash::operator()(const Format& f) const
{
    return qHashMulti(0, f.alignment ? int(*f.alignment) : -1, f.back.isValid() ? f.back.rgba() : 0u,
                      f.fore.isValid() ? f.fore.rgba() : 0u, f.bold, f.points, f.picture);
}

FlexGrid::FlexGrid(QWidget* parent)
    : QTableView(parent), model_(new FlexGridModel(this)), topHeader_(new FlexGridHeader(Qt::Horizontal, this)),
      leftHeader_(new FlexGridHeader(Qt::Vertical, this))
{
    // Two rows and two columns, one of each fixed.
    cols_ = 2;
    lines_.assign(2, Line(cols_));
    formats_.push_back(Format{});
    formatIndex_.emplace(Format{}, 0);

    setHorizontalHeader(topHeader_);
    setVerticalHeader(leftHeader_);
    setModel(model_);
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
    // A text wider than its cell ends in "…"; the tooltip tells the rest.
    setTextElideMode(Qt::ElideRight);
    setWordWrap(false);
    setCornerButtonEnabled(false);

    connect(topHeader_, &QHeaderView::sectionClicked, this,
            [this](int section) { emit titleClicked(section + lead()); });
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current, const QModelIndex& previous) {
                if (!current.isValid())
                    return;
                rowSel_ = current.row() + top();
                colSel_ = current.column() + lead();
                if (current.row() != previous.row() || current.column() != previous.column())
                    emit RowColChange();
            });
}

FlexGrid::~FlexGrid() = default;

int FlexGrid::Rows() const
{
    return int(lines_.size());
}
int FlexGrid::Cols() const
{
    return cols_;
}

void FlexGrid::setRows(int rows)
{
    rows = std::max(rows, 0);
    if (rows < fixedRows_)
        setFixedRows(rows);
    if (rows > Rows())
        insertLines(Rows(), rows - Rows());
    else if (rows < Rows())
        removeLines(rows, Rows() - rows);
}

void FlexGrid::insertLines(int row, int count)
{
    model_->beginInsertRows({}, row - top(), row - top() + count - 1);
    lines_.insert(lines_.begin() + row, count, Line(cols_));
    model_->endInsertRows();
}

void FlexGrid::removeLines(int row, int count)
{
    model_->beginRemoveRows({}, row - top(), row - top() + count - 1);
    lines_.erase(lines_.begin() + row, lines_.begin() + row + count);
    model_->endRemoveRows();
}

void FlexGrid::setCols(int cols)
{
    cols = std::max(cols, 0);
    if (cols < fixedCols_)
        setFixedCols(cols);
    if (cols > cols_) {
        model_->beginInsertColumns({}, cols_ - lead(), cols - lead() - 1);
        for (Line& line : lines_)
            line.resize(cols);
        cols_ = cols;
        model_->endInsertColumns();
    } else if (cols < cols_) {
        model_->beginRemoveColumns({}, cols - lead(), cols_ - lead() - 1);
        for (Line& line : lines_)
            line.resize(cols);
        cols_ = cols;
        model_->endRemoveColumns();
    }
    for (auto it = colTwips_.cbegin(); it != colTwips_.cend(); ++it)
        if (it.key() < cols)
            applyColWidth(it.key());
}

// Row 0 moves between the header and the body as the first fixed row comes
// or goes; the cells stay where they are.
void FlexGrid::setFixedRows(int rows)
{
    rows = std::clamp(rows, 0, Rows());
    if ((rows > 0) != (top() > 0))
        model_->moveFirst(Qt::Vertical, rows > 0, [&] { fixedRows_ = rows; });
    fixedRows_ = rows;
    updateHeaders();
    announceAll();
}

void FlexGrid::setFixedCols(int cols)
{
    cols = std::clamp(cols, 0, Cols());
    if ((cols > 0) != (lead() > 0))
        model_->moveFirst(Qt::Horizontal, cols > 0, [&] { fixedCols_ = cols; });
    fixedCols_ = cols;
    for (auto it = colTwips_.cbegin(); it != colTwips_.cend(); ++it)
        applyColWidth(it.key());
    updateHeaders();
    announceAll();
}

void FlexGrid::updateHeaders()
{
    topHeader_->setVisible(top() > 0);
    leftHeader_->setVisible(lead() > 0 && leftHeader_->extent != 0);
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

int FlexGrid::internFormat(const Format& format)
{
    const auto found = formatIndex_.find(format);
    if (found != formatIndex_.end())
        return found->second;
    formats_.push_back(format);
    const int index = int(formats_.size()) - 1;
    formatIndex_.emplace(format, index);
    return index;
}

void FlexGrid::announce(int row1, int col1, int row2, int col2)
{
    if (!redraw_) {
        pendingRedraw_ = true;
        return;
    }
    if (row2 < row1 || col2 < col1)
        return;
    // The body part of the block, then its titles.
    const int r1 = std::max(row1, top()) - top(), r2 = row2 - top();
    const int c1 = std::max(col1, lead()) - lead(), c2 = col2 - lead();
    if (r1 <= r2 && c1 <= c2)
        emit model_->dataChanged(model_->index(r1, c1), model_->index(r2, c2));
    if (col1 < lead() && r1 <= r2)
        emit model_->headerDataChanged(Qt::Vertical, r1, r2);
    if (row1 < top() && c1 <= c2)
        emit model_->headerDataChanged(Qt::Horizontal, c1, c2);
}

void FlexGrid::announceAll()
{
    announce(0, 0, Rows() - 1, Cols() - 1);
}

QString FlexGrid::clippedTextAt(const QPoint& viewportPos) const
{
    const QModelIndex index = indexAt(viewportPos);
    if (!index.isValid())
        return {};
    const QString text = index.data(Qt::DisplayRole).toString();
    if (text.isEmpty() || text.contains(u'\n'))
        return {};
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    const QVariant font = index.data(Qt::FontRole);
    const QFontMetrics metrics(font.isValid() ? font.value<QFont>().resolve(this->font()) : this->font());
    // The item's own margins, as the style draws it.
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, this) + 1;
    const int room = option.rect.width() - 2 * margin;
    return metrics.horizontalAdvance(text) > room ? text : QString();
}

bool FlexGrid::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(event);
        const QString text = clippedTextAt(help->pos());
        if (text.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), text, viewport(), visualRect(indexAt(help->pos())));
        return true;
    }
    return QTableView::viewportEvent(event);
}

QVariant FlexGrid::cellData(int row, int col, int role) const
{
    if (row < 0 || row >= Rows() || col < 0 || col >= Cols())
        return {};
    const Cell& cell = lines_[row][col];
    const Format& format = formats_[cell.format];
    switch (role) {
    case Qt::DisplayRole:
        // "\r\n" shows as a line break.
        if (cell.text.contains(u'\r'))
            return QString(cell.text).replace(QLatin1String("\r\n"), QLatin1String("\n")).remove(u'\r');
        return cell.text;
    case Qt::TextAlignmentRole:
        return int(CellAlignment(row, col));
    case Qt::BackgroundRole:
        if (format.back.isValid())
            return QBrush(format.back);
        if (row >= top() && col >= lead() && isFixed(row, col))
            return QBrush(ui::buttonFace());
        return {};
    case Qt::ForegroundRole:
        return format.fore.isValid() ? QVariant(QBrush(format.fore)) : QVariant();
    case Qt::FontRole: {
        if (format.bold < 0 && format.points <= 0)
            return {};
        QFont font; // only what was set overrides the grid's font
        if (format.bold >= 0)
            font.setBold(format.bold > 0);
        if (format.points > 0)
            font.setPointSizeF(format.points);
        return font;
    }
    case Qt::DecorationRole:
        return format.picture >= 0 ? QVariant(pictures_[format.picture]) : QVariant();
    default:
        return {};
    }
}

QString FlexGrid::TextMatrix(int row, int col) const
{
    checkCell(row, col);
    return lines_[row][col].text;
}

void FlexGrid::setTextQuietly(int row, int col, const QString& text)
{
    lines_[row][col].text = text;
    const auto& alignments = isFixed(row, col) ? fixedAlignment_ : colAlignment_;
    if (!alignments.contains(col) && !text.isEmpty()) {
        const Qt::Alignment alignment = Qt::AlignVCenter | (vb::IsNumeric(text) ? Qt::AlignRight : Qt::AlignLeft);
        changeFormat(row, col, [&](Format& f) { f.alignment = alignment; });
    }
}

void FlexGrid::setTextMatrix(int row, int col, const QString& text)
{
    checkCell(row, col);
    setTextQuietly(row, col, text);
    announce(row, col, row, col);
}

int FlexGrid::Row() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() ? current.row() + top() : fixedRows_;
}
int FlexGrid::Col() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() ? current.column() + lead() : fixedCols_;
}

void FlexGrid::setRow(int row)
{
    checkCell(row, 0);
    if (row < top())
        return;
    setCurrentIndex(model_->index(row - top(), std::max(Col() - lead(), 0)));
    rowSel_ = row;
    colSel_ = Col();
}

void FlexGrid::setCol(int col)
{
    checkCell(0, col);
    if (col < lead() || model_->rowCount() == 0)
        return;
    setCurrentIndex(model_->index(std::max(Row() - top(), 0), col - lead()));
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
    if (r2 < 0 || model_->columnCount() == 0)
        return;
    const QItemSelection range(model_->index(r1, 0), model_->index(r2, model_->columnCount() - 1));
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

void FlexGrid::showSortIndicator(int col, bool ascending)
{
    if (col < lead()) {
        topHeader_->setSortIndicatorShown(false);
        return;
    }
    topHeader_->setSortIndicator(col - lead(), ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    topHeader_->setSortIndicatorShown(true);
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
        QTableView::setRowHeight(row - top(), pixels);
    }
}

void FlexGrid::setRedraw(bool redraw)
{
    redraw_ = redraw;
    setUpdatesEnabled(redraw);
    if (redraw && pendingRedraw_) {
        pendingRedraw_ = false;
        announceAll();
    }
}

void FlexGrid::Clear()
{
    // A grid filled anew is in no sorted order.
    topHeader_->setSortIndicatorShown(false);
    for (Line& line : lines_)
        std::fill(line.begin(), line.end(), Cell{});
    formats_.assign(1, Format{});
    formatIndex_.clear();
    formatIndex_.emplace(Format{}, 0);
    pictures_.clear();
    clearSpans();
    selectionModel()->clear();
    announceAll();
}

void FlexGrid::wheelEvent(QWheelEvent* event)
{
    const int delta = event->angleDelta().y();
    if (delta == 0) {
        QTableView::wheelEvent(event);
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
    QTableView::keyPressEvent(event);
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTableView::mouseDoubleClickEvent(event);
    emit DblClick();
}
