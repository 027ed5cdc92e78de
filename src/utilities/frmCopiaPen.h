#pragma once
// "Copia de Seguridad": copies the year's database to a drive, under
// <drive>/CopiaCadernia/<year>, and brings a copy back. The drives are the
// mounted volumes; the only way out is cmdCerrar (the window has no close box).
// A copy never goes over the open year's own file; a restore takes only a
// backup that is a sound year, and keeps the year it replaces beside it as a
// dated safety copy (DatabaseCopy.h).
#include "ui/Form.h"

#include <QList>
#include <QString>

#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

class frmCopiaPen : public Form {
    Q_OBJECT

public:
    // A mounted volume: its root folder and its name.
    struct Unidad {
        QString ruta;
        QString nombre;
    };

    explicit frmCopiaPen(QWidget* parent = nullptr);

    QComboBox* Drive1;
    QLineEdit* txtRuta;
    QLabel* lblInforma;
    QPushButton* cmdRealizar;
    QPushButton* cmdRecuperar;
    QPushButton* cmdCerrar;

    void cmdRealizar_Click();
    void cmdRecuperar_Click();
    void cmdCerrar_Click() { Unload(); }

    // The writable mounted volumes, by root. Tests give their own folders.
    static QList<Unidad> Unidades();
    static void setUnidades(std::function<QList<Unidad>()> provider);

protected:
    void Form_Activate() override;
    void closeEvent(QCloseEvent* event) override;

private:
    // The root of the chosen drive, with no trailing slash ("" for "/").
    QString Raiz() const;
    void Drive1_Change();
    void Informar(const QString& text, qint64 color);
};
