#pragma once
// The about box: the program's name, our contact lines and the picture,
// which opens our web page. A click anywhere else closes the box.
#include "ui/Form.h"

#include <QUrl>

#include <functional>

class QFrame;
class QLabel;

class frmAcercaDe : public Form {
    Q_OBJECT

public:
    explicit frmAcercaDe(QWidget* parent = nullptr);

    static QUrl webPage();

    // How the web page is opened: QDesktopServices::openUrl. Tests put a
    // recorder here; an empty function puts the default back.
    static void setUrlOpener(std::function<void(const QUrl&)> opener);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void imgLogo_Click();

    QLabel* imgLogo_ = nullptr;
    QFrame* fraTexto_ = nullptr;
};
