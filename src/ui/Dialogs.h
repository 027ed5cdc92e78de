#pragma once
// The common file and colour dialogs, behind a seam that tests answer in
// advance. Nothing else opens a QFileDialog or a QColorDialog.
//
//     FileDialog::setNextFileName("/tmp/alumnos.alu");   // "" = cancelled
//     ColorDialog::setNextColor(QColor(255, 0, 0));      // invalid = cancelled
//
// With MsgBox::setUnscriptedFatal(true) an unanswered dialog ends the test run.
#include <QColor>
#include <QString>
#include <QStringList>

class QWidget;

class FileDialog {
public:
    // The chosen file, or "" when cancelled.
    static QString getOpenFileName(QWidget* parent = nullptr, const QString& caption = QString(),
                                   const QString& dir = QString(), const QString& filter = QString());
    static QString getSaveFileName(QWidget* parent = nullptr, const QString& caption = QString(),
                                   const QString& dir = QString(), const QString& filter = QString());
    // The chosen folder, or "" when cancelled.
    static QString getExistingDirectory(QWidget* parent = nullptr, const QString& caption = QString(),
                                        const QString& dir = QString());

    // The open dialog with a filter written as the common dialog's,
    // "description|pattern|description|pattern": it lists each description
    // as written, the patterns out of sight; a description left without a
    // pattern lists every file. `fileName` may be a pattern ("*.alu").
    static QString getOpenFileNameCommon(QWidget* parent, const QString& caption, const QString& fileName,
                                         const QString& filter);
    // The Qt filter of such a text: "Ficheiros|*.alu|Todos" gives
    // "Ficheiros (*.alu);;Todos (*)".
    static QString qtFilter(const QString& commonFilter);

    static void setNextFileName(const QString& fileName);
    // Captions of the dialogs asked for since the last reset.
    static const QStringList& asked();
    // Their filters, as the callers wrote them.
    static const QStringList& askedFilters();
    // The folders or files they opened on.
    static const QStringList& askedDirs();
    static void reset();
};

class ColorDialog {
public:
    // The chosen colour, or an invalid QColor when cancelled.
    static QColor getColor(const QColor& initial = Qt::white, QWidget* parent = nullptr,
                           const QString& title = QString());

    static void setNextColor(const QColor& color);
    static const QList<QColor>& asked(); // the initial colour of each dialog
    static void reset();
};
