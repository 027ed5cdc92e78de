#include "masterdata/frmNivelesFicha.h"

frmNivelesFicha::frmNivelesFicha(QWidget* parent) : FichaForm(QStringLiteral("tblNiveles"), parent) {}
