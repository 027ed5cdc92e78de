#pragma once
// A report laid out on pages: the body HTML in a QTextDocument, paginated on
// A4 with a page header (program and year, date, title, subtitle, information
// line) and a footer "Página n de m". The layout is done once, so the
// preview, the printer and the PDF file show the same pages.
#include <QPageLayout>
#include <QString>
#include <QVector>

#include <memory>

class QPagedPaintDevice;
class QPainter;
class QPrinter;
class QTextDocument;

namespace reports {

struct PageHeader {
    QString empresa;  // pEmpresa: the program and the year
    QString title;    // may hold line breaks
    QString subtitle; // the group, the subject... may be empty
    QString info;     // pInfo or the report's information line, may be empty
    QString date;     // dd/MM/yyyy
};

class ReportDocument {
public:
    ReportDocument(const QString& name, const QString& bodyHtml, const PageHeader& header, bool landscape);
    ~ReportDocument();
    ReportDocument(const ReportDocument&) = delete;
    ReportDocument& operator=(const ReportDocument&) = delete;

    const QString& name() const { return name_; }
    const PageHeader& header() const { return header_; }
    const QString& html() const { return html_; }
    int pageCount() const;
    // A4, the report's orientation, the margins of every page.
    QPageLayout pageLayout() const;

    // Draws every page on a printer, a preview's printer or a PDF writer,
    // giving it the report's page layout first.
    void paint(QPagedPaintDevice* device) const;
    // Writes a PDF file. A file that cannot be written throws RuntimeError
    // (PathNotFound) naming it.
    void writePdf(const QString& path) const;
    // Several reports one after the other in one PDF file, each numbering
    // its own pages.
    static void writePdf(const QVector<const ReportDocument*>& documents, const QString& path);

    // The shared look of every report: tables, stripes, marks, boxes.
    static QString houseStyle();
    // The rules of the house style that a body uses.
    static QString houseStyleFor(const QString& html);

    // The line a page opens with when a table under a heading runs onto it
    // from the page before: "<heading> (continuación)"; "" otherwise.
    QString continuationOf(int page) const;

private:
    void layoutHeader();
    void drawPage(QPainter& painter, int page) const;
    // Every page on a painter already begun on the device, the first one on
    // the device's present page.
    void paintPages(QPainter& painter, QPagedPaintDevice* device) const;
    void computePageBottoms() const;

    QString name_;
    QString html_;
    PageHeader header_;
    bool landscape_;
    qreal dpi_;   // units of the layout per inch
    qreal width_; // of the printable area, in layout units
    qreal height_;
    qreal headerHeight_ = 0;
    qreal footerHeight_ = 0;
    qreal bodyHeight_ = 0;
    qreal continuationHeight_ = 0; // a line kept at the top of the body for it
    std::unique_ptr<QTextDocument> body_;
    std::unique_ptr<QTextDocument> top_;
    mutable QVector<qreal> pageBottoms_;
};

} // namespace reports
