#pragma once
// The first start of an installed program: its folder has no ruta.ini yet.
// The launcher (cadernia-start) shows this dialog, which asks where to keep
// the class book, the name of the first year and whether to fill it with
// the demo class book, then does the installer's work with a progress bar.
// Accepted when the folder is ready for the program.
#include "ui/Form.h"

#include <QDate>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

class FirstStartDialog : public Form {
    Q_OBJECT

public:
    // `programFolder`: where ruta.ini, ano.ini and Impresion/ go.
    explicit FirstStartDialog(const QString& programFolder, QWidget* parent = nullptr);

    QLineEdit* txtCarpeta;
    QPushButton* cmdExaminar;
    QLineEdit* txtCurso;
    QCheckBox* chkDemo;
    QProgressBar* prgProgreso;
    QLabel* lblPaso;
    QPushButton* cmdAceptar;
    QPushButton* cmdCancelar;

    // The date the default year is taken from; tests fix it.
    void setToday(const QDate& today);
    // True while the installer's work runs.
    bool busy() const { return busy_; }

    // The folder the program's files go to when it has no ruta.ini.
    static bool needsFirstStart(const QString& programFolder);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void cmdExaminar_Click();
    void cmdAceptar_Click();
    void finish(bool ok, const QString& error);
    void setBusy(bool busy);

    QString programFolder_;
    QDate today_;
    bool busy_ = false;
};
