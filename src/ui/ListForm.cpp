#include "ui/ListForm.h"

#include "core/Modulo.h"
#include "ui/FichaForm.h"
#include "ui/FlexGrid.h"
#include "ui/MsgBox.h"
#include "ui/RuntimeErrorBox.h"
#include "vb/Vb.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

using vb::CLng;
using vb::IsNumeric;
using vb::UCase;

ListForm::ListForm(QWidget* parent)
    : Form(parent), mshDatos(new FlexGrid(this)), cmdNovo(ui::commandButton(this, "cmdNovo", QStringLiteral("&Nuevo"))),
      cmdEditar(ui::commandButton(this, "cmdEditar", QStringLiteral("&Editar"))),
      cmdBorrar(ui::commandButton(this, "cmdBorrar", QStringLiteral("&Borrar"))),
      cmdSalir(ui::commandButton(this, "cmdSalir", QStringLiteral("&Salir"))), gridColumn(new QVBoxLayout),
      buttons_(new QVBoxLayout)
{
    mshDatos->setObjectName(QStringLiteral("mshDatos"));

    buttons_->addWidget(cmdNovo);
    buttons_->addWidget(cmdEditar);
    buttons_->addWidget(cmdBorrar);
    buttons_->addStretch(1);
    buttons_->addWidget(cmdSalir);
    gridColumn->addWidget(mshDatos, 1);
    auto* layout = new QHBoxLayout(this);
    layout->addLayout(gridColumn, 1);
    layout->addLayout(buttons_);

    setCancelButton(cmdSalir);
    setSizeGripEnabled(true);

    // Slots may raise run-time errors; they end in the program's handler.
    auto guarded = [this](void (ListForm::*handler)()) {
        return [this, handler] { ui::guardRuntime([&] { (this->*handler)(); }); };
    };
    connect(cmdNovo, &QPushButton::clicked, this, guarded(&ListForm::cmdNovo_Click));
    connect(cmdEditar, &QPushButton::clicked, this, guarded(&ListForm::cmdEditar_Click));
    connect(mshDatos, &FlexGrid::DblClick, this, guarded(&ListForm::mshDatos_DblClick));
    connect(cmdBorrar, &QPushButton::clicked, this, guarded(&ListForm::cmdBorrar_Click));
    connect(cmdSalir, &QPushButton::clicked, this, &Form::Unload);
}

ListForm::~ListForm() = default;

void ListForm::setColumns(const QList<int>& widths, const QStringList& titles)
{
    setColumns(ui::GridColumns::fromLists(widths, titles));
}

void ListForm::setColumns(const ui::GridColumns& columns)
{
    columns_ = columns;
    // Room for every visible column, the frame and a vertical scroll bar, and
    // for a dozen rows.
    int pixels = 0;
    for (int c = 0; c < columns_.count(); ++c)
        pixels += mshDatos->twipsToPixels(std::max(columns_.widthOf(*mshDatos, c), titleTwips(c)));
    pixels += 2 * mshDatos->frameWidth() + mshDatos->verticalScrollBar()->sizeHint().width() + 4;
    mshDatos->setMinimumSize(pixels, 12 * mshDatos->fontMetrics().height() + 60);
}

void ListForm::addButton(QPushButton* button)
{
    // Above the stretch that keeps cmdSalir at the bottom.
    buttons_->insertWidget(buttons_->count() - 2, button);
}

int ListForm::titleTwips(int col) const
{
    return col < 1 ? 0 : columns_.titleTwips(*mshDatos, col);
}

void ListForm::Form_Activate()
{
    if (consumeTagA())
        return;
    Rellenar();
}

void ListForm::Rellenar()
{
    rs.Close();
    rs.Open(strSql, gConexion);
    ui::fillList(*mshDatos, rs, columns_, rowNumbers);
    fitTitles();
}

void ListForm::fitTitles()
{
    // A visible column is never narrower than its title in the grid's font.
    for (int c = 1; c < mshDatos->Cols(); ++c)
        if (mshDatos->ColWidth(c) < titleTwips(c))
            mshDatos->setColWidth(c, titleTwips(c));
}

int ListForm::lastVisibleCol() const
{
    int last = 1;
    for (int c = 1; c < columns_.count(); ++c)
        if (columns_.widthOf(*mshDatos, c) > 0)
            last = c;
    return std::min(last, mshDatos->Cols() - 1);
}

int ListForm::keyCol() const
{
    // The grid shows the recordset's fields from column 1 on.
    return rs.IsOpen() ? rs.FieldIndex(QStringLiteral("Id")) + 1 : 0;
}

void ListForm::cmdNovo_Click()
{
    BusyCursor busy(this);
    std::unique_ptr<FichaForm> ficha = makeFicha_();
    ficha->setEstado(0);
    ficha->setCaption(newCaption);
    // The list refills when it becomes active again.
    ShowModal(ficha.get());
}

void ListForm::cmdEditar_Click()
{
    sobreFila([this](qint32 id) {
        std::unique_ptr<FichaForm> ficha = makeFicha_();
        ficha->setEstado(1);
        ficha->setId(id);
        ficha->setCaption(QStringLiteral("Modificando ") + UCase(rs.Value(textField)));
        ShowModal(ficha.get());
    });
}

void ListForm::mshDatos_DblClick()
{
    cmdEditar_Click();
}

void ListForm::sobreFila(const std::function<void(qint32 id)>& abrir)
{
    const int col = keyCol();
    if (col < 1 || col >= mshDatos->Cols() || !IsNumeric(mshDatos->TextMatrix(mshDatos->RowSel(), col)))
        return;
    BusyCursor busy(this);
    ui::moveRecordsetToGridRow(*mshDatos, rs);
    const qint32 id = CLng(rs.Value(QStringLiteral("Id")));
    // The list refills below, once, with the row found again.
    Tag = QStringLiteral("A");
    CodigoAtopado = id;
    abrir(id);

    Rellenar();
    rs.Find(QStringLiteral("Id = %1").arg(CodigoAtopado.toString()));
    if (!rs.Eof()) {
        mshDatos->setRow(rs.AbsolutePosition());
        mshDatos->setColSel(lastVisibleCol());
    }
    CodigoAtopado = QVariant();
}

void ListForm::cmdBorrar_Click()
{
    if (!rs.IsOpen() || (rs.Bof() && rs.Eof()))
        return;
    ui::moveRecordsetToGridRow(*mshDatos, rs);
    const QString text = rs.Value(textField).toString();
    if (MsgBox(deleteQuestion + QStringLiteral("\r\n") + text + QStringLiteral("?"), vbYesNo + vbInformation) != vbYes)
        return;
    BorrarActual();
    Rellenar();
}

void ListForm::BorrarActual()
{
    gConexion->Execute(QStringLiteral("DELETE * FROM %1 WHERE Id = %2")
                           .arg(table, QString::number(CLng(rs.Value(QStringLiteral("Id"))))));
}

void ListForm::done(int result)
{
    rs.Close();
    Form::done(result);
}
