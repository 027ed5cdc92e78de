#include "core/ui/Dialogs.h"

#include "core/ui/MsgBox.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QQueue>

#include <optional>

namespace {

struct FileScript {
    QQueue<QString> answers;
    QStringList asked;
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
std::optional<QString> scriptedFile(const QString& caption)
{
    files().asked.append(caption);
    if (!files().answers.isEmpty())
        return files().answers.dequeue();
    if (MsgBox::unscriptedFatal())
        qFatal("File dialog without a scripted answer: \"%s\"", qPrintable(caption));
    return std::nullopt;
}

} // namespace

QString FileDialog::getOpenFileName(QWidget* parent, const QString& caption, const QString& dir, const QString& filter)
{
    if (auto scripted = scriptedFile(caption))
        return *scripted;
    return QFileDialog::getOpenFileName(parent, caption, dir, filter);
}

QString FileDialog::getSaveFileName(QWidget* parent, const QString& caption, const QString& dir, const QString& filter)
{
    if (auto scripted = scriptedFile(caption))
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

void FileDialog::reset()
{
    files().answers.clear();
    files().asked.clear();
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
