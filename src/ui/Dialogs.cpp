#include "ui/Dialogs.h"

#include "ui/MsgBox.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QQueue>

#include <optional>

namespace {

struct FileScript {
    QQueue<QString> answers;
    QStringList asked;
    QStringList filters;
    QStringList dirs;
};

FileScript& files()
{
    static FileScript s;
    return s;
}

struct ColorScript {
    QQueue<QColor> answers;
    QList<QColor> asked;
};

ColorScript& colors()
{
    static ColorScript s;
    return s;
}

// A scripted answer if there is one; nothing when the real dialog is to open.
std::optional<QString> scriptedFile(const QString& caption, const QString& filter = QString(),
                                    const QString& dir = QString())
{
    files().asked.append(caption);
    files().filters.append(filter);
    files().dirs.append(dir);
    if (!files().answers.isEmpty())
        return files().answers.dequeue();
    if (MsgBox::unscriptedFatal())
        qFatal("File dialog without a scripted answer: \"%s\"", qPrintable(caption));
    return std::nullopt;
}

} // namespace

QString FileDialog::getOpenFileName(QWidget* parent, const QString& caption, const QString& dir, const QString& filter)
{
    if (auto scripted = scriptedFile(caption, filter, dir))
        return *scripted;
    return QFileDialog::getOpenFileName(parent, caption, dir, filter);
}

QString FileDialog::getOpenFileNameCommon(QWidget* parent, const QString& caption, const QString& fileName,
                                          const QString& filter)
{
    if (auto scripted = scriptedFile(caption, filter))
        return *scripted;
    return QFileDialog::getOpenFileName(parent, caption, fileName, qtFilter(filter), nullptr,
                                        QFileDialog::HideNameFilterDetails);
}

QString FileDialog::qtFilter(const QString& commonFilter)
{
    const QStringList parts = commonFilter.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString pattern = i + 1 < parts.size() ? parts[i + 1].trimmed() : QString();
        // Qt separates several patterns with blanks, the common dialog with ";".
        const QString patterns = pattern.isEmpty() ? QStringLiteral("*") : QString(pattern).replace(u';', u' ');
        filters << parts[i] + QStringLiteral(" (") + patterns + u')';
    }
    return filters.join(QStringLiteral(";;"));
}

QString FileDialog::getSaveFileName(QWidget* parent, const QString& caption, const QString& dir, const QString& filter)
{
    if (auto scripted = scriptedFile(caption, filter))
        return *scripted;
    return QFileDialog::getSaveFileName(parent, caption, dir, filter);
}

QString FileDialog::getExistingDirectory(QWidget* parent, const QString& caption, const QString& dir)
{
    if (auto scripted = scriptedFile(caption))
        return *scripted;
    return QFileDialog::getExistingDirectory(parent, caption, dir);
}

void FileDialog::setNextFileName(const QString& fileName)
{
    files().answers.enqueue(fileName);
}

const QStringList& FileDialog::asked()
{
    return files().asked;
}

const QStringList& FileDialog::askedFilters()
{
    return files().filters;
}

const QStringList& FileDialog::askedDirs()
{
    return files().dirs;
}

void FileDialog::reset()
{
    files().answers.clear();
    files().asked.clear();
    files().filters.clear();
    files().dirs.clear();
}

QColor ColorDialog::getColor(const QColor& initial, QWidget* parent, const QString& title)
{
    colors().asked.append(initial);
    if (!colors().answers.isEmpty())
        return colors().answers.dequeue();
    if (MsgBox::unscriptedFatal())
        qFatal("Colour dialog without a scripted answer: \"%s\"", qPrintable(title));
    // The full dialog, opened on the start colour.
    return QColorDialog::getColor(initial, parent, title);
}

void ColorDialog::setNextColor(const QColor& color)
{
    colors().answers.enqueue(color);
}

const QList<QColor>& ColorDialog::asked()
{
    return colors().asked;
}

void ColorDialog::reset()
{
    colors().answers.clear();
    colors().asked.clear();
}
