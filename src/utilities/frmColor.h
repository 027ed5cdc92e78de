#pragma once
// "Colores": the two colours of the screens. gColor stripes the lists and
// marks the field with the focus; gColor2 is the background of data
// sections. Accepted colours take effect at once and are written to
// color.ini and color2.ini under the base folder.
#include "ui/Form.h"

class QPushButton;

class frmColor : public Form {
    Q_OBJECT

public:
    explicit frmColor(QWidget* parent = nullptr);

    QPushButton* cmdColor1;
    QPushButton* cmdColor2;
    QPushButton* cmdAceptar;
    QPushButton* cmdCancelar;

    void cmdColor1_Click() { Elegir(cmdColor1); }
    void cmdColor2_Click() { Elegir(cmdColor2); }
    void cmdAceptar_Click();
    void cmdCancelar_Click() { Unload(); }

protected:
    void Form_Activate() override;

private:
    // The colour dialog, starting at the button's colour. Black reads as no
    // choice, like a cancelled dialog: the button keeps its colour.
    void Elegir(QPushButton* button);
    static void Pintar(QPushButton* button, const QColor& color);
};
