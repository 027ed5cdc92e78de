#pragma once
// The main window: the one window that stays open. It opens each area as a
// modal form; closing it asks first and then ends the process at once.
#include "ui/Form.h"

#include <QPointer>

#include <functional>

class QAction;
class QLabel;
class QMenuBar;
class QPushButton;

class frmPrincipal : public Form {
    Q_OBJECT

public:
    explicit frmPrincipal(QWidget* parent = nullptr);
    ~frmPrincipal() override;

    // The window while it lives; the year screen retitles it through here.
    static frmPrincipal* instance();

    // The unload handler, run by the close box and by "&2. Salir". Yes closes
    // gConexion and ends the process at once; No sets cancel.
    void Form_Unload(bool& cancel);

    // How the process ends after the Yes: at once, with no form unloaded.
    // Tests put a recorder here; an empty function puts the default back.
    static void setProcessEnd(std::function<void()> end);

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildHeader();
    void buildBands();
    void buildMenu();
    QPushButton* addButton(const char* name, const QString& caption);
    QAction* addEntry(QMenu* menu, const char* name, const QString& caption);

    // Busy pointer, the form modal, normal pointer.
    template <class F>
    void Abrir();

    void cmdConfiguracion_Click();
    void cmdTarvelo_Click();
    void mnuSairSair_Click();

    QMenuBar* menuBar_ = nullptr;
    QWidget* header_ = nullptr;
    QLabel* lblCurso_ = nullptr;
    QWidget* bands_ = nullptr;
    QList<QPushButton*> buttons_;
};
