#include "app/frmAcercaDe.h"

#include "app/Logo.h"

#include <QDesktopServices>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace {

std::function<void(const QUrl&)>& urlOpener()
{
    static std::function<void(const QUrl&)> opener;
    return opener;
}

bool isLeftClick(QEvent* event)
{
    return event->type() == QEvent::MouseButtonRelease && static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
}

} // namespace

frmAcercaDe::frmAcercaDe(QWidget* parent) : Form(parent)
{
    setObjectName(QStringLiteral("frmAcercaDe"));
    setCaption(QStringLiteral("Acerca de ..."));

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(24, 24, 28, 24);
    layout->setSpacing(24);

    imgLogo_ = new QLabel(this);
    imgLogo_->setObjectName(QStringLiteral("imgLogo"));
    imgLogo_->setPixmap(app::logoPixmap(112, devicePixelRatioF()));
    imgLogo_->setFixedSize(112, 112);
    imgLogo_->setCursor(Qt::PointingHandCursor);
    imgLogo_->setToolTip(webPage().toString());
    imgLogo_->installEventFilter(this);
    layout->addWidget(imgLogo_, 0, Qt::AlignTop);

    fraTexto_ = new QFrame(this);
    fraTexto_->setObjectName(QStringLiteral("fraTexto"));
    fraTexto_->installEventFilter(this);
    auto* texts = new QVBoxLayout(fraTexto_);
    texts->setContentsMargins(0, 0, 0, 0);
    texts->setSpacing(6);
    auto* titulo = new QLabel(QStringLiteral("Cadernia"), fraTexto_);
    titulo->setObjectName(QStringLiteral("lblTitulo"));
    QFont big = titulo->font();
    big.setPointSizeF(big.pointSizeF() * 2.2);
    big.setBold(true);
    titulo->setFont(big);
    texts->addWidget(titulo);
    const QStringList lines = {
        QStringLiteral("Cadernia — caderno de aula para o profesorado"),
        QStringLiteral("contacto@cadernia.example"),
        webPage().toString(),
    };
    for (int i = 0; i < lines.size(); ++i) {
        auto* line = new QLabel(lines[i], fraTexto_);
        line->setObjectName(QStringLiteral("lblContacto"));
        line->setProperty("Index", i);
        if (i == 0)
            texts->addSpacing(2);
        texts->addWidget(line);
    }
    texts->addStretch(1);
    layout->addWidget(fraTexto_, 1);

    setFixedSize(sizeHint().expandedTo(QSize(480, 170)));
}

QUrl frmAcercaDe::webPage()
{
    return QUrl(QStringLiteral("https://cadernia.example"));
}

void frmAcercaDe::setUrlOpener(std::function<void(const QUrl&)> opener)
{
    urlOpener() = std::move(opener);
}

void frmAcercaDe::imgLogo_Click()
{
    if (urlOpener())
        urlOpener()(webPage());
    else
        QDesktopServices::openUrl(webPage());
}

bool frmAcercaDe::eventFilter(QObject* watched, QEvent* event)
{
    if (isLeftClick(event)) {
        if (watched == imgLogo_) {
            imgLogo_Click();
            return true;
        }
        if (watched == fraTexto_) {
            Unload();
            return true;
        }
    }
    return Form::eventFilter(watched, event);
}

void frmAcercaDe::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Unload();
    else
        Form::mouseReleaseEvent(event);
}
