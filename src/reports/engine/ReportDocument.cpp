#include "reports/engine/ReportDocument.h"

#include "core/BandColours.h"
#include "vb/RuntimeError.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QFile>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QScreen>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

namespace reports {

namespace {

const QString kFontFamily = QStringLiteral("DejaVu Sans");
constexpr qreal kFontPoints = 9;
const QColor kRule(0x1f, 0x3a, 0x5f);

// Margins of every page, in millimetres.
const QMarginsF kMargins(15, 12, 15, 12);
// Space between the header rule and the body, in points.
constexpr qreal kHeaderGapPt = 10;

// Units per inch of the text layout: the resolution QTextDocument turns
// points into when no paint device is given.
qreal layoutDpi()
{
    if (QCoreApplication::testAttribute(Qt::AA_Use96Dpi))
        return 96;
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        return qRound(screen->logicalDotsPerInchY());
    return 96;
}

QString escaped(const QString& text)
{
    return text.toHtmlEscaped();
}

// Line breaks of a title or an information line, kept on the page.
QString withBreaks(const QString& text)
{
    QString t = text;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    QStringList lines = t.split(u'\n');
    for (QString& line : lines)
        line = escaped(line.trimmed());
    lines.removeAll(QString());
    return lines.join(QStringLiteral("<br/>"));
}

const char* const kHouseStyle = R"CSS(
body { color: #1b1b1b; }
table { margin-bottom: 4px; }
h1 { font-size: 13pt; color: #1f3a5f; margin-top: 0px; margin-bottom: 6px; }
h2 { font-size: 11pt; color: #1f3a5f; margin-top: 14px; margin-bottom: 5px; }
h3 { font-size: 9.5pt; color: #1f3a5f; margin-top: 12px; margin-bottom: 4px; }
th { background-color: #dde5ee; color: #1f3a5f; font-weight: bold; text-align: left; }
tr.stripe td { background-color: #f1f4f8; }
tr.totals td { background-color: #dde5ee; font-weight: bold; }
td.num, th.num { text-align: right; }
td.center, th.center { text-align: center; }
.fail { color: #b3001b; font-weight: bold; }
.muted { color: #5f6b78; }
.small { font-size: 8pt; }
p.total { margin-top: 4px; color: #1f3a5f; }
p.empty { font-style: italic; color: #5f6b78; margin-top: 12px; }
td.label { color: #5f6b78; }
td.gap, th.gap { padding-left: 12px; }
p.gap { margin-top: 0px; margin-bottom: 0px; font-size: 5pt; }
td.value { font-weight: bold; }
table.box { border-color: #9aa9bb; }
td.bandhead { background-color: #dde5ee; color: #1f3a5f; font-weight: bold; text-align: center; }
)CSS";

const char* const kHeaderStyle = R"CSS(
td.empresa { color: #5f6b78; font-size: 8pt; }
td.fecha { color: #5f6b78; font-size: 8pt; }
p.titulo { font-size: 13pt; font-weight: bold; color: #1f3a5f; margin-top: 3px; margin-bottom: 0px; }
p.subtitulo { font-size: 10pt; margin-top: 3px; margin-bottom: 0px; }
p.info { font-size: 8.5pt; color: #3b4b5c; margin-top: 2px; margin-bottom: 0px; }
)CSS";

void setupDocument(QTextDocument& doc, qreal width)
{
    doc.setUseDesignMetrics(true);
    doc.setDocumentMargin(0);
    QFont font(kFontFamily);
    font.setPointSizeF(kFontPoints);
    doc.setDefaultFont(font);
    doc.setTextWidth(width);
}

// The font of a continuation line, in layout units of `dpi`.
QFont continuationFont(qreal dpi)
{
    QFont font(kFontFamily);
    font.setPixelSize(qRound(10 * dpi / 72.0));
    font.setBold(true);
    return font;
}

qreal mmToUnits(qreal mm, qreal dpi)
{
    return mm / 25.4 * dpi;
}

// The space a table cell's block keeps below its text: padding, spacing and
// borders of every table around it. Kept per frame: a long list has
// thousands of cells in one table.
qreal cellAllowance(const QTextDocument& doc, const QTextBlock& block, QHash<const QTextFrame*, qreal>& known)
{
    QTextFrame* innermost = doc.frameAt(block.position());
    const auto it = known.constFind(innermost);
    if (it != known.cend())
        return *it;
    qreal allowance = 0;
    for (QTextFrame* frame = innermost; frame; frame = frame->parentFrame()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            const QTextTableFormat f = table->format();
            allowance += f.cellPadding() + f.cellSpacing() + f.border() + 1;
        }
    }
    known.insert(innermost, allowance);
    return allowance;
}

} // namespace

QString ReportDocument::houseStyle()
{
    // The band cells take the colours the marking grid paints.
    QString style = QString::fromUtf8(kHouseStyle);
    for (int b = 0; b < bands::kCount; ++b)
        style += QStringLiteral("td.band%1 { background-color: #%2; text-align: center; }\n")
                     .arg(QLatin1String(bands::kNames[b]))
                     .arg(bands::kColours[b], 6, 16, QLatin1Char('0'));
    return style;
}

QString ReportDocument::houseStyleFor(const QString& html)
{
    // The rich text parser matches every rule against every element, so a
    // long list of the body only keeps the rules of the classes it uses.
    static const QRegularExpression classRe(QStringLiteral("\\.([A-Za-z][\\w-]*)"));
    QString style;
    for (const QString& rule : houseStyle().split(u'\n', Qt::SkipEmptyParts)) {
        const QString selector = rule.section(u'{', 0, 0);
        bool used = true;
        for (auto it = classRe.globalMatch(selector); it.hasNext();) {
            if (!html.contains(it.next().captured(1)))
                used = false;
        }
        if (used)
            style += rule + u'\n';
    }
    return style;
}

ReportDocument::ReportDocument(const QString& name, const QString& bodyHtml, const PageHeader& header, bool landscape)
    : name_(name), html_(bodyHtml), header_(header), landscape_(landscape), dpi_(layoutDpi())
{
    const QRectF paint = pageLayout().paintRect(QPageLayout::Millimeter);
    width_ = mmToUnits(paint.width(), dpi_);
    height_ = mmToUnits(paint.height(), dpi_);
    layoutHeader();

    body_ = std::make_unique<QTextDocument>();
    setupDocument(*body_, width_);
    body_->setDefaultStyleSheet(houseStyleFor(bodyHtml));
    body_->setHtml(bodyHtml);
    bodyHeight_ = height_ - headerHeight_ - footerHeight_;
    body_->setPageSize(QSizeF(width_, bodyHeight_));
    // When a table under a heading runs onto another page, every page keeps
    // a line at its top for "<heading> (continuación)", and the body is laid
    // out again in the room that is left.
    if (pageCount() > 1 && bodyHtml.contains(QLatin1String("<table")) &&
        (bodyHtml.contains(QLatin1String("<h2")) || bodyHtml.contains(QLatin1String("<h3")))) {
        continuationHeight_ = QFontMetricsF(continuationFont(dpi_)).height() * 1.6;
        bool continues = false;
        for (int page = 1; page < pageCount() && !continues; ++page)
            continues = !continuationOf(page).isEmpty();
        if (continues) {
            bodyHeight_ -= continuationHeight_;
            body_->setPageSize(QSizeF(width_, bodyHeight_));
        } else {
            continuationHeight_ = 0;
        }
    }
}

ReportDocument::~ReportDocument() = default;

void ReportDocument::layoutHeader()
{
    QString html = QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"0\"><tr>"
                                  "<td class=\"empresa\">%1</td><td class=\"fecha\" align=\"right\">%2</td>"
                                  "</tr></table>")
                       .arg(escaped(header_.empresa), escaped(header_.date));
    html += QStringLiteral("<p class=\"titulo\">%1</p>").arg(withBreaks(header_.title));
    if (!header_.subtitle.trimmed().isEmpty())
        html += QStringLiteral("<p class=\"subtitulo\">%1</p>").arg(withBreaks(header_.subtitle));
    if (!header_.info.trimmed().isEmpty())
        html += QStringLiteral("<p class=\"info\">%1</p>").arg(withBreaks(header_.info));
    top_ = std::make_unique<QTextDocument>();
    setupDocument(*top_, width_);
    top_->setDefaultStyleSheet(QString::fromUtf8(kHeaderStyle));
    top_->setHtml(html);
    const qreal points = dpi_ / 72.0;
    headerHeight_ = top_->size().height() + kHeaderGapPt * points;
    footerHeight_ = 20 * points;
}

QPageLayout ReportDocument::pageLayout() const
{
    return QPageLayout(QPageSize(QPageSize::A4), landscape_ ? QPageLayout::Landscape : QPageLayout::Portrait, kMargins,
                       QPageLayout::Millimeter);
}

int ReportDocument::pageCount() const
{
    return body_->pageCount();
}

void ReportDocument::computePageBottoms() const
{
    // A table row that does not fit is moved to the next page, and the row
    // before it is stretched down to the page's end: its stripe would run to
    // the footer. Each page is therefore drawn down to its last text only.
    const int pages = pageCount();
    pageBottoms_.fill(0, pages);
    QAbstractTextDocumentLayout* layout = body_->documentLayout();
    QHash<const QTextFrame*, qreal> allowances;
    for (QTextBlock b = body_->begin(); b.isValid(); b = b.next()) {
        const QRectF r = layout->blockBoundingRect(b);
        if (r.isNull())
            continue;
        const qreal bottom = r.bottom() + cellAllowance(*body_, b, allowances);
        const int first = qBound(0, int(r.top() / bodyHeight_), pages - 1);
        const int last = qBound(0, int(bottom / bodyHeight_), pages - 1);
        for (int p = first; p < last; ++p)
            pageBottoms_[p] = (p + 1) * bodyHeight_;
        pageBottoms_[last] = qMax(pageBottoms_[last], qMin(bottom, (last + 1) * bodyHeight_));
    }
}

QString ReportDocument::continuationOf(int page) const
{
    if (continuationHeight_ <= 0 || page <= 0 || page >= pageCount())
        return {};
    const qreal pageTop = page * bodyHeight_;
    QAbstractTextDocumentLayout* layout = body_->documentLayout();
    for (QTextFrame* frame : body_->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table)
            continue;
        // The heading is the block just before the table. A table goes on
        // from an earlier page when its heading stands above this page's
        // top and the table below it: split by the page, or pushed whole
        // onto this page away from its heading.
        const QTextBlock heading = body_->findBlock(table->firstPosition()).previous();
        if (!heading.isValid() || heading.blockFormat().headingLevel() <= 0 || heading.text().trimmed().isEmpty())
            continue;
        if (layout->blockBoundingRect(heading).top() < pageTop - 1 &&
            layout->frameBoundingRect(table).bottom() > pageTop + 1)
            return heading.text().trimmed() + QStringLiteral(" (continuación)");
    }
    return {};
}

void ReportDocument::drawPage(QPainter& painter, int page) const
{
    const qreal pt = dpi_ / 72.0;
    // Header and its rule.
    painter.save();
    top_->drawContents(&painter);
    painter.restore();
    const qreal ruleY = headerHeight_ - kHeaderGapPt * pt / 2;
    painter.setPen(QPen(kRule, 1.2 * pt));
    painter.drawLine(QPointF(0, ruleY), QPointF(width_, ruleY));

    // The heading of a table that goes on from the page before.
    const QString continuation = continuationOf(page);
    if (!continuation.isEmpty()) {
        painter.save();
        painter.setFont(continuationFont(dpi_));
        painter.setPen(QColor(0x1f, 0x3a, 0x5f));
        painter.drawText(QRectF(0, headerHeight_, width_, continuationHeight_), Qt::AlignLeft | Qt::AlignVCenter,
                         continuation);
        painter.restore();
    }

    // Body: the slice of the document that falls on this page.
    painter.save();
    painter.translate(0, headerHeight_ + continuationHeight_ - page * bodyHeight_);
    // A little room at the sides for the borders of full-width tables
    // (and below, but never into the next page, whose first heading the
    // layout may place a fraction of a unit above the page's edge).
    const qreal bottom = qMin(pageBottoms_[page] + pt, (page + 1) * bodyHeight_ - 1);
    const QRectF slice(-2 * pt, page * bodyHeight_, width_ + 4 * pt, bottom - page * bodyHeight_);
    painter.setClipRect(slice);
    QAbstractTextDocumentLayout::PaintContext ctx;
    ctx.clip = slice;
    ctx.palette.setColor(QPalette::Text, Qt::black);
    body_->documentLayout()->draw(&painter, ctx);
    painter.restore();

    // Footer.
    const qreal footerTop = height_ - footerHeight_ + 6 * pt;
    painter.setPen(QPen(QColor(0x9a, 0xa9, 0xbb), 0.6 * pt));
    painter.drawLine(QPointF(0, footerTop), QPointF(width_, footerTop));
    // The painter is scaled to layout units; the font is sized for the device.
    QFont font(kFontFamily);
    font.setPointSizeF(8 * dpi_ / painter.device()->logicalDpiY());
    painter.setFont(font);
    painter.setPen(QColor(0x5f, 0x6b, 0x78));
    const QRectF footer(0, footerTop + 2 * pt, width_, footerHeight_ - 8 * pt);
    painter.drawText(footer, Qt::AlignRight | Qt::AlignVCenter,
                     QStringLiteral("Página %1 de %2").arg(page + 1).arg(pageCount()));
}

void ReportDocument::paint(QPagedPaintDevice* device) const
{
    device->setPageLayout(pageLayout());
    QPainter painter;
    if (!painter.begin(device))
        throw RuntimeError(RuntimeError::PathNotFound, QStringLiteral("No se puede imprimir el reporte %1").arg(name_));
    paintPages(painter, device);
    painter.end();
}

void ReportDocument::paintPages(QPainter& painter, QPagedPaintDevice* device) const
{
    if (pageBottoms_.size() != pageCount())
        computePageBottoms();
    // The painter starts at the printable area's corner in device pixels.
    const qreal scale = device->logicalDpiX() / dpi_;
    for (int page = 0; page < pageCount(); ++page) {
        if (page > 0)
            device->newPage();
        painter.save();
        painter.scale(scale, scale);
        drawPage(painter, page);
        painter.restore();
    }
}

void ReportDocument::writePdf(const QString& path) const
{
    writePdf({this}, path);
}

void ReportDocument::writePdf(const QVector<const ReportDocument*>& documents, const QString& path)
{
    if (documents.isEmpty())
        return;
    // The PDF is written whole under a temporary name beside the file and
    // only then renamed over it: a writer killed half way leaves the file
    // that was there, never a truncated one.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw RuntimeError(RuntimeError::PathNotFound,
                           QStringLiteral("No se puede escribir el archivo %1: %2").arg(path, file.errorString()));
    const ReportDocument& first = *documents.first();
    {
        QPdfWriter writer(&file);
        writer.setCreator(QStringLiteral("Cadernia"));
        writer.setTitle(QString(first.header_.title).replace(QLatin1String("\r\n"), QLatin1String(" ")));
        writer.setResolution(600);
        writer.setPageLayout(first.pageLayout());
        QPainter painter;
        if (!painter.begin(&writer))
            throw RuntimeError(RuntimeError::PathNotFound,
                               QStringLiteral("No se puede imprimir el reporte %1").arg(first.name_));
        for (int i = 0; i < documents.size(); ++i) {
            if (i > 0) {
                writer.setPageLayout(documents[i]->pageLayout());
                writer.newPage();
            }
            documents[i]->paintPages(painter, &writer);
        }
        painter.end();
    }
    if (!file.commit())
        throw RuntimeError(RuntimeError::PathNotFound,
                           QStringLiteral("No se puede escribir el archivo %1: %2").arg(path, file.errorString()));
}

} // namespace reports
