#include "setup/FirstStart.h"

#include "setup/Setup.h"
#include "ui/Dialogs.h"
#include "ui/MsgBox.h"
#include "vb/Clock.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>

FirstStartDialog::FirstStartDialog(const QString& programFolder, QWidget* parent)
    : Form(parent), programFolder_(programFolder), today_(vb::Clock::today())
{
    setWindowTitle(QStringLiteral("Cadernia: primer inicio"));

    auto* intro = new QLabel(QStringLiteral("Cadernia guarda el cuaderno de clase en una carpeta de este equipo, "
                                            "con una subcarpeta para cada curso escolar."),
                             this);
    intro->setWordWrap(true);

    txtCarpeta = new QLineEdit(QDir::homePath() + QStringLiteral("/Cadernia"), this);
    txtCarpeta->setObjectName(QStringLiteral("txtCarpeta"));
    cmdExaminar = new QPushButton(QStringLiteral("&Examinar..."), this);
    cmdExaminar->setObjectName(QStringLiteral("cmdExaminar"));
    auto* folderRow = new QHBoxLayout;
    folderRow->addWidget(txtCarpeta, 1);
    folderRow->addWidget(cmdExaminar);

    txtCurso = new QLineEdit(this);
    txtCurso->setObjectName(QStringLiteral("txtCurso"));
    chkDemo =
        new QCheckBox(QStringLiteral("Llenar el curso con un cuaderno de &ejemplo (grupos, alumnos, notas)"), this);
    chkDemo->setObjectName(QStringLiteral("chkDemo"));

    auto* form = new QFormLayout;
    auto* folderLabel = new QLabel(QStringLiteral("&Carpeta base:"), this);
    folderLabel->setBuddy(txtCarpeta);
    auto* yearLabel = new QLabel(QStringLiteral("&Nombre del primer curso:"), this);
    yearLabel->setBuddy(txtCurso);
    form->addRow(folderLabel, folderRow);
    form->addRow(yearLabel, txtCurso);
    form->addRow(QString(), chkDemo);

    prgProgreso = new QProgressBar(this);
    prgProgreso->setObjectName(QStringLiteral("prgProgreso"));
    prgProgreso->setRange(0, 100);
    prgProgreso->setValue(0);
    lblPaso = new QLabel(this);
    lblPaso->setObjectName(QStringLiteral("lblPaso"));

    cmdAceptar = new QPushButton(QStringLiteral("&Aceptar"), this);
    cmdAceptar->setObjectName(QStringLiteral("cmdAceptar"));
    cmdAceptar->setDefault(true);
    cmdCancelar = new QPushButton(QStringLiteral("&Cancelar"), this);
    cmdCancelar->setObjectName(QStringLiteral("cmdCancelar"));
    setCancelButton(cmdCancelar);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdAceptar);
    buttons->addWidget(cmdCancelar);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addSpacing(6);
    layout->addLayout(form);
    layout->addSpacing(6);
    layout->addWidget(prgProgreso);
    layout->addWidget(lblPaso);
    layout->addStretch(1);
    layout->addLayout(buttons);
    resize(560, sizeHint().height());

    setToday(today_);
    onSignal(cmdExaminar, &QPushButton::clicked, &FirstStartDialog::cmdExaminar_Click);
    onSignal(cmdAceptar, &QPushButton::clicked, &FirstStartDialog::cmdAceptar_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, [this] {
        if (!busy_)
            reject();
    });
}

void FirstStartDialog::setToday(const QDate& today)
{
    today_ = today;
    txtCurso->setText(setup::schoolYearName(today));
}

bool FirstStartDialog::needsFirstStart(const QString& programFolder)
{
    return !QFileInfo::exists(programFolder + QStringLiteral("/ruta.ini"));
}

void FirstStartDialog::closeEvent(QCloseEvent* event)
{
    // Half an installation is no use: the window stays until the work ends.
    if (busy_) {
        event->ignore();
        return;
    }
    Form::closeEvent(event);
}

void FirstStartDialog::cmdExaminar_Click()
{
    const QString folder = FileDialog::getExistingDirectory(this, QStringLiteral("Carpeta base"), txtCarpeta->text());
    if (!folder.isEmpty())
        txtCarpeta->setText(QDir::toNativeSeparators(folder));
}

void FirstStartDialog::cmdAceptar_Click()
{
    if (busy_)
        return;
    setup::SetupOptions options;
    options.baseFolder = QDir::fromNativeSeparators(txtCarpeta->text().trimmed());
    options.yearName = txtCurso->text().trimmed();
    options.demo = chkDemo->isChecked();
    options.today = today_;
    options.programDir = programFolder_;
    if (options.baseFolder.isEmpty()) {
        MsgBox(QStringLiteral("Escriba la carpeta base."), vbExclamation);
        txtCarpeta->setFocus();
        return;
    }
    if (const QString why = setup::checkYearName(options.yearName); !why.isEmpty()) {
        MsgBox(why, vbExclamation);
        txtCurso->setFocus();
        return;
    }
    // A base folder that already holds this year (another user of the
    // computer, a copy brought from elsewhere) is used as it is.
    const QString database =
        QDir(options.baseFolder).absoluteFilePath(options.yearName + QStringLiteral("/Xestion.mdb"));
    if (QFileInfo::exists(database)) {
        if (MsgBox(QStringLiteral("El curso %1 ya existe en esa carpeta.\n¿Quiere usarlo tal como está?")
                       .arg(options.yearName),
                   vbYesNo | vbQuestion) != vbYes)
            return;
        options.keepExistingYear = true;
        options.demo = false;
    }

    setBusy(true);
    QPointer<FirstStartDialog> self(this);
    options.progress = [self](int percent, const QString& step) {
        QMetaObject::invokeMethod(
            self,
            [self, percent, step] {
                if (self) {
                    self->prgProgreso->setValue(percent);
                    self->lblPaso->setText(step);
                }
            },
            Qt::QueuedConnection);
    };
    auto* worker = QThread::create([self, options] {
        QString error;
        const bool ok = setup::setupBase(options, &error);
        QMetaObject::invokeMethod(
            self,
            [self, ok, error] {
                if (self)
                    self->finish(ok, error);
            },
            Qt::QueuedConnection);
    });
    connect(worker, &QThread::finished, worker, &QObject::deleteLater);
    worker->start();
}

void FirstStartDialog::finish(bool ok, const QString& error)
{
    setBusy(false);
    if (!ok) {
        prgProgreso->setValue(0);
        lblPaso->clear();
        MsgBox(error, vbCritical);
        return;
    }
    prgProgreso->setValue(100);
    accept();
}

void FirstStartDialog::setBusy(bool busy)
{
    busy_ = busy;
    for (QWidget* w :
         {static_cast<QWidget*>(txtCarpeta), static_cast<QWidget*>(cmdExaminar), static_cast<QWidget*>(txtCurso),
          static_cast<QWidget*>(chkDemo), static_cast<QWidget*>(cmdAceptar), static_cast<QWidget*>(cmdCancelar)})
        w->setEnabled(!busy);
    if (busy)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}
