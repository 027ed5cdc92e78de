// The student sheet's recoveries tab: the make-up of each stored evaluation
// mark, kept in the same row and never replacing the mark.
#include "MarksTest.h"
#include "marks/frmNotaFinal.h"
#include "support/ModalForm.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

using namespace marks_test;
using yearq::count;
using yearq::value;

namespace {

enum : int { ReEval = 1, ReMat, ReNota, ReRecuperar, ReNotaRec, ReRecuperado, ReObs, ReId };

} // namespace

class TestStudentsRecoveries : public QObject {
    Q_OBJECT

    SheetOnYear year_;

    // Task marks of Lengua in the 1ª and 2ª and of Matemáticas in the 1ª,
    // each with its stored evaluation mark (ids 1, 2, 3).
    void marked()
    {
        tipo(1, QStringLiteral("Examen"), 10);
        int id = 1;
        for (auto [eva, mat] : {std::pair{1, 1}, {2, 1}, {1, 2}}) {
            tarea(id, QStringLiteral("Examen %1").arg(id), 1, eva, mat);
            nota(id, 1, QStringLiteral("4"));
            ++id;
        }
        notaEval(1, 1, 1, QStringLiteral("4"));
        notaEval(2, 1, 1, QStringLiteral("6.5"));
        notaEval(1, 2, 1, QStringLiteral("3"));
    }

private slots:
    void init()
    {
        year_.start();
        MsgBox::reset();
    }
    void cleanup() { year_.finish(); }

    void theGridListsEveryStoredMarkNewestFirst()
    {
        marked();
        exec(QStringLiteral("UPDATE tblNotasEval SET Recuperar = True, NotaRec = 5.5, ObsRec = 'Xuño' WHERE Id = 1"));
        auto& f = year_.open(1);
        f.sstDatos->setCurrentWidget(f.tabRecuperaciones);
        const FlexGrid& g = *f.mshEvalRec;
        QCOMPARE(g.Rows(), 4);
        QCOMPARE(
            cells(g, 0, 1, 7),
            QStringLiteral("Evaluación | Materia | Nota Eva. | Recuperar | Nota Rec. | Recuperado | Observaciones"));
        QCOMPARE(cells(g, 1, 1, 8), QStringLiteral("2ª Evaluación | Lengua | 6,50 | NO |  | NO |  | 2"));
        const int lengua1 = g.TextMatrix(2, ReId) == QLatin1String("1") ? 2 : 3;
        QCOMPARE(cells(g, lengua1, 1, 8), QStringLiteral("1ª Evaluación | Lengua | 4,00 | SÍ | 5,5 | NO | Xuño | 1"));
        QCOMPARE(g.CellBackColor(lengua1, ReNotaRec), QColor(255, 0, 0));
        QCOMPARE(g.CellBackColor(lengua1, ReObs), QColor(255, 0, 0));
        QVERIFY(g.CellBackColor(lengua1, ReRecuperar) != QColor(255, 0, 0));
        QVERIFY(g.CellBackColor(1, ReNotaRec) != QColor(255, 0, 0));
        QVERIFY(g.CellFontBold(1, ReNotaRec));
        QCOMPARE(g.ColWidth(ReId), 0);
        // The editor shows the first row.
        QCOMPARE(f.txtNotaRec->text(), QString());
        QVERIFY(!f.chkRecuperar->isChecked());
        f.mshEvalRec->setRow(lengua1);
        QVERIFY(f.chkRecuperar->isChecked());
        QCOMPARE(f.txtNotaRec->text(), QStringLiteral("5,5"));
        QCOMPARE(f.txtObsRec->text(), QStringLiteral("Xuño"));
    }

    void aStudentWithTaskMarksButNoStoredMarkHasAnEmptyGridAndButtonsThatDoNothing()
    {
        tipo(1, QStringLiteral("Examen"), 10);
        tarea(1, QStringLiteral("Examen"), 1, 1, 1);
        nota(1, 1, QStringLiteral("4"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshEvalRec->Rows(), 0);
        QCOMPARE(f.mshEvalRec->Cols(), 0);
        f.sstDatos->setCurrentWidget(f.tabRecuperaciones);
        f.txtNotaRec->setText(QStringLiteral("x"));
        click(f.cmdGardarRec);
        click(f.cmdBorrarRec);
        click(f.cmdBorrarEval);
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(count(QStringLiteral("tblNotasEval")), 0);
    }

    void storedMarksWithoutAnyEvaluationRowNeverLoadThisTab()
    {
        notaEval(1, 1, 1, QStringLiteral("4"));
        auto& f = year_.open(1);
        QCOMPARE(f.mshEvalRec->Rows(), 0);
        QCOMPARE(f.mshEvalRec->Cols(), 0);
        // The final marks' mean of that subject has no row to count.
        QCOMPARE(year_.errors().size(), 1);
        QCOMPARE(year_.errors().first().Number(), 6);
        year_.errors().clear();
    }

    void saveWritesTheRecoveryAndKeepsTheMark()
    {
        marked();
        auto& f = year_.open(1);
        f.sstDatos->setCurrentWidget(f.tabRecuperaciones);
        f.chkRecuperar->setChecked(true);
        f.txtNotaRec->setText(QStringLiteral("5,75"));
        f.txtObsRec->setText(QStringLiteral("Recupera en xuño"));
        click(f.cmdGardarRec);
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("Recuperar"), 2), QStringLiteral("true"));
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("NotaRec"), 2), QStringLiteral("5.75"));
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("Recuperado"), 2),
                 QStringLiteral("false"));
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("ObsRec"), 2),
                 QStringLiteral("Recupera en xuño"));
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("Nota"), 2), QStringLiteral("6.5"));
        QCOMPARE(cells(*f.mshEvalRec, 1, ReRecuperar, ReObs), QStringLiteral("SÍ | 5,75 | NO | Recupera en xuño"));
    }

    void anEmptyRecoveryMarkRefusesTheSaveEvenForACheckAlone()
    {
        marked();
        auto& f = year_.open(1);
        f.sstDatos->setCurrentWidget(f.tabRecuperaciones);
        f.chkRecuperar->setChecked(true);
        f.txtNotaRec->clear();
        MsgBox::setNextAnswer(vbOK);
        click(f.cmdGardarRec);
        QCOMPARE(MsgBox::shown().size(), 1);
        QCOMPARE(MsgBox::shown().first().text, QStringLiteral("Ponga un nº correcto"));
        QCOMPARE(MsgBox::shown().first().flags, vbInformation);
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("Recuperar"), 2), QStringLiteral("false"));
    }

    void borrarRecLeavesTheMarkAndTheRowWithNoEmptyNo()
    {
        marked();
        exec(QStringLiteral("UPDATE tblNotasEval SET Recuperar = True, NotaRec = 7, Recuperado = True, ObsRec = 'x' "
                            "WHERE Id = 2"));
        auto& f = year_.open(1);
        f.sstDatos->setCurrentWidget(f.tabRecuperaciones);
        click(f.cmdBorrarRec);
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("Nota"), 2), QStringLiteral("6.5"));
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("NotaRec"), 2), QStringLiteral("Null"));
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("ObsRec"), 2), QStringLiteral("Null"));
        QCOMPARE(cells(*f.mshEvalRec, 1, ReNota, ReObs), QStringLiteral("6,50 | NO |  | NO | "));
    }

    void aMarkJustMadeByTheDialogTakesTheTablesDefaults()
    {
        marked();
        exec(QStringLiteral("DELETE FROM tblNotasEval WHERE Id = 2"));
        auto& f = year_.open(1);
        auto run = onModal<frmNotaFinal>([](frmNotaFinal* d) {
            d->txtNota->setText(QStringLiteral("5"));
            click(d->cmdAceptar);
        });
        doubleClickCell(f.mshEval, 1, 4);
        QVERIFY(run->closedByItself());
        const int id = value(QStringLiteral("SELECT Id FROM tblNotasEval WHERE IdEval = 2")).toInt();
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("Recuperar"), id),
                 QStringLiteral("false"));
        QCOMPARE(yearq::field(QStringLiteral("tblNotasEval"), QStringLiteral("Recuperado"), id),
                 QStringLiteral("false"));
        QCOMPARE(cells(*f.mshEvalRec, 1, ReEval, ReRecuperado),
                 QStringLiteral("2ª Evaluación | Lengua | 5,00 | NO |  | NO"));
    }

    void borrarEvalOnThisTabReadsTheMarksTabsRowInThisGrid()
    {
        marked();
        auto& f = year_.open(1);
        // Row 2 of the marks tab, then the same number read here.
        f.mshEval->setRow(2);
        const QString idAqui = f.mshEvalRec->TextMatrix(2, ReId);
        const QString mat = f.mshEvalRec->TextMatrix(2, ReMat);
        const QString eval = f.mshEvalRec->TextMatrix(2, ReEval);
        f.sstDatos->setCurrentWidget(f.tabRecuperaciones);
        f.mshEvalRec->setRow(1);
        MsgBox::setNextAnswer(vbYes);
        click(f.cmdBorrarEval);
        QCOMPARE(MsgBox::shown().first().text,
                 QStringLiteral("¿Borrar la nota de %1 de la %2 evaluación?").arg(mat, eval));
        QCOMPARE(MsgBox::shown().first().flags, vbYesNo + vbInformation);
        QCOMPARE(count(QStringLiteral("tblNotasEval")), 2);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) AS N FROM tblNotasEval WHERE Id = ") + idAqui).toInt(), 0);
    }

    void thePeriodKeyDeletesTheRowAtOnce()
    {
        marked();
        auto& f = year_.open(1);
        f.sstDatos->setCurrentWidget(f.tabRecuperaciones);
        f.mshEvalRec->setFocus();
        QTest::keyClick(f.mshEvalRec, Qt::Key_Period);
        QVERIFY(MsgBox::shown().isEmpty());
        QCOMPARE(count(QStringLiteral("tblNotasEval")), 2);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) AS N FROM tblNotasEval WHERE Id = 2")).toInt(), 0);
        QCOMPARE(f.mshEvalRec->Rows(), 3);
        // The evaluation mark went with it.
        QCOMPARE(f.mshEval->TextMatrix(1, 4), QString());
    }

    void navigationClearsTheEditor()
    {
        marked();
        auto& f = year_.open(1);
        f.txtObsRec->setText(QStringLiteral("sen gardar"));
        click(f.cmdSeguinte);
        QCOMPARE(f.Id(), 2);
        QCOMPARE(f.txtNotaRec->text(), QStringLiteral("0"));
        QCOMPARE(f.txtObsRec->text(), QString());
        QVERIFY(!f.chkRecuperar->isChecked());
    }
};

QTEST_MAIN(TestStudentsRecoveries)
#include "test_students_recoveries.moc"
