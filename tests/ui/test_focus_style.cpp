// The program's style: the keyboard focus framed in the highlight colour on
// buttons, combo boxes, sliders and the current cell of a grid, and nothing
// drawn around them without the focus.
#include "ui/FlexGrid.h"
#include "ui/FocusStyle.h"

#include <QComboBox>
#include <QImage>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>
#include <QtTest>

namespace {

QRgb frameColour(const QWidget& w)
{
    return ui::FocusStyle::frameColour(w.palette()).rgb();
}

// Whether the second line of pixels of `rect` holds the frame's colour.
bool framed(QWidget& w, const QRect& rect)
{
    const QImage image = w.grab().toImage();
    int hits = 0;
    for (int x = rect.left() + 2; x < rect.right() - 2; ++x)
        hits += image.pixel(x, rect.top() + 1) == frameColour(w);
    return hits > rect.width() / 2;
}

} // namespace

class TestFocusStyle : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setStyle(new ui::FocusStyle); } // the application owns it

    void aFocusedButtonComboOrSliderIsFramedAndAnUnfocusedOneIsNot()
    {
        QWidget form;
        auto* button = new QPushButton(QStringLiteral("&Aceptar"), &form);
        auto* combo = new QComboBox(&form);
        combo->addItem(QStringLiteral("1º ESO A"));
        auto* slider = new QSlider(Qt::Horizontal, &form);
        slider->setFocusPolicy(Qt::StrongFocus);
        auto* other = new QPushButton(QStringLiteral("&Cancelar"), &form);
        auto* layout = new QVBoxLayout(&form);
        layout->addWidget(button);
        layout->addWidget(combo);
        layout->addWidget(slider);
        layout->addWidget(other);
        form.show();
        form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        for (QWidget* w :
             {static_cast<QWidget*>(button), static_cast<QWidget*>(combo), static_cast<QWidget*>(slider)}) {
            other->setFocus(Qt::TabFocusReason);
            QVERIFY(!framed(*w, w->rect()));
            w->setFocus(Qt::TabFocusReason);
            QVERIFY(framed(*w, w->rect()));
        }
    }

    void theCurrentCellOfAFocusedGridIsFramed()
    {
        FlexGrid grid;
        grid.setRows(4);
        grid.setCols(3);
        grid.resize(400, 200);
        grid.show();
        grid.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&grid));
        grid.setFocus(Qt::TabFocusReason);
        grid.setRow(2);
        grid.setCol(2);
        const QRect cell = grid.visualRect(grid.currentIndex()).translated(grid.viewport()->pos());
        QVERIFY(framed(grid, cell));
        grid.clearFocus();
        QVERIFY(!framed(grid, cell));
    }
};

QTEST_MAIN(TestFocusStyle)
#include "test_focus_style.moc"
