#pragma once
// The configuration hub: the six catalogues and the two printer choices.
// Closing it, whichever way, saves the choices in imp.ini beside the program.
#include "ui/Form.h"

class QComboBox;
class QPushButton;

class frmConfiguracion : public Form {
    Q_OBJECT

public:
    explicit frmConfiguracion(QWidget* parent = nullptr);

    // The control array cmbImpresora: 0 under "Informes", 1 under "PDF".
    // Both carry the object name "cmbImpresora" and their index in the
    // property "Index".
    QComboBox* cmbImpresora(int index) const { return cmbImpresora_[index]; }

    void done(int result) override;

protected:
    void Form_Activate() override;

private:
    template <class F>
    void Abrir();
    void RellenarImpresoras();
    void GuardarImpresoras();

    QComboBox* cmbImpresora_[2] = {};
};
