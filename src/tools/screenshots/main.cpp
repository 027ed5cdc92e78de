// cadernia-screenshots OUTDIR [NAME...]: renders every screen of the program
// on a fresh demo year to OUTDIR/<name>.png, for checking layouts by eye.
// Run it under a display server (`xvfb-run -a`); with NAMEs only those.
#include "core/Modulo.h"
#include "setup/Setup.h"
#include "tools/screenshots/Screens.h"
#include "ui/MsgBox.h"
#include "ui/Printers.h"
#include "ui/RuntimeErrorBox.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLinearGradient>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace {

QTextStream& err()
{
    static QTextStream stream(stderr);
    return stream;
}

void settle(int ms)
{
    const QDeadlineTimer deadline(ms);
    while (!deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
}

// The widget under a plain title bar that carries its caption, since the
// display server of the tool draws no window frames.
QImage framed(QWidget* widget)
{
    const QPixmap body = widget->grab();
    const qreal dpr = body.devicePixelRatio();
    const int bar = 30;
    const QSize size(int(body.width() / dpr), int(body.height() / dpr) + bar);
    QImage image(size * dpr, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(dpr);
    image.fill(Qt::white);
    QPainter p(&image);
    QLinearGradient g(0, 0, 0, bar);
    g.setColorAt(0, QColor(0x4a, 0x4f, 0x57));
    g.setColorAt(1, QColor(0x38, 0x3c, 0x42));
    p.fillRect(QRect(0, 0, size.width(), bar), g);
    QFont f = widget->font();
    f.setBold(true);
    p.setFont(f);
    p.setPen(Qt::white);
    p.drawText(QRect(12, 0, size.width() - 24, bar), Qt::AlignVCenter | Qt::AlignLeft, widget->windowTitle());
    p.drawPixmap(0, bar, body);
    p.setPen(QColor(0x38, 0x3c, 0x42));
    p.drawRect(QRect(0, 0, size.width() - 1, size.height() - 1));
    return image;
}

bool writeLine(const QString& path, const QString& line)
{
    QString error;
    if (!setup::writeConfigLine(path, line, &error)) {
        err() << error << Qt::endl;
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    GuardedApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    if (args.isEmpty()) {
        err() << "Uso: cadernia-screenshots CARPETA_SALIDA [PANTALLA...]" << Qt::endl;
        return 2;
    }
    const QString outDir = QDir(args[0]).absolutePath();
    const QStringList only = args.mid(1);
    if (!QDir().mkpath(outDir)) {
        err() << "No se puede crear " << outDir << Qt::endl;
        return 1;
    }

    // A box nobody can answer ends the run, naming the box, instead of hanging.
    MsgBox::setUnscriptedFatal(true);
    int failures = 0;
    ui::setRuntimeErrorHandler([&](const RuntimeError& e) {
        err() << ui::runtimeErrorText(e) << Qt::endl;
        ++failures;
    });

    QTemporaryDir tmp;
    setup::SetupOptions options;
    options.baseFolder = tmp.filePath(QStringLiteral("Cadernia"));
    options.programDir = tmp.filePath(QStringLiteral("programa"));
    options.demo = true;
    options.today = QDate(2025, 11, 12); // the same demo year on every run
    QString error;
    setup::SetupResult installed;
    if (!setup::setupBase(options, &error, &installed)) {
        err() << error << Qt::endl;
        return 1;
    }
    // The installer writes no colour files: use the pale blue and grey of a
    // configured desktop rather than the black of a missing file.
    if (!writeLine(options.programDir + QStringLiteral("/color.ini"), QStringLiteral(" 16445670 ")) ||
        !writeLine(options.programDir + QStringLiteral("/color2.ini"), QStringLiteral(" 15790320 ")))
        return 1;

    // Two printers of a school's staff room, so that the lists show real names.
    Printers::setForTest({QStringLiteral("HP LaserJet Aula 12"), QStringLiteral("Sala de profesores (color)")});

    SetRutaPrograma(options.programDir);
    QDir::setCurrent(options.programDir);
    const bool opened = ui::guardRuntime([] {
        gColor = LeerColor();
        gColor2 = LeerColor2();
        AbrirConexion();
    });
    if (!opened)
        return 1;

    QTextStream out(stdout);
    int written = 0;
    auto save = [&](QWidget* widget, const QString& name) {
        const QString file = outDir + u'/' + name + QStringLiteral(".png");
        if (!framed(widget).save(file)) {
            err() << "No se puede escribir " << file << Qt::endl;
            ++failures;
        } else {
            out << file << Qt::endl;
            ++written;
        }
    };
    for (const screenshots::Screen& screen : screenshots::screens()) {
        if (!only.isEmpty() && !only.contains(screen.name))
            continue;
        std::unique_ptr<QWidget> widget;
        ui::guardRuntime([&] { widget.reset(screen.make()); });
        if (!widget)
            continue;
        widget->show(); // a Form activates as it is shown, which fills it
        settle(250);
        if (!screen.open) {
            save(widget.get(), screen.name);
        } else {
            // The child runs modally inside open(): render it from its own
            // event loop once it has settled, then close it.
            bool rendered = false;
            QTimer watch;
            watch.setInterval(20);
            QObject::connect(&watch, &QTimer::timeout, [&] {
                QWidget* child = QApplication::activeModalWidget();
                if (!child || child == widget.get() || !child->isVisible())
                    return;
                watch.stop();
                QTimer::singleShot(250, child, [&, child] {
                    save(child, screen.name);
                    rendered = true;
                    child->close();
                });
            });
            watch.start();
            ui::guardRuntime([&] { screen.open(widget.get()); });
            watch.stop();
            if (!rendered) {
                err() << screen.name << ": no se ha abierto ninguna ventana" << Qt::endl;
                ++failures;
            }
        }
        widget->hide();
    }
    if (only.isEmpty() || only.contains(QStringLiteral("FichaAlumno-pdf"))) {
        QString page;
        ui::guardRuntime([&] { page = screenshots::studentRecordPage(outDir); });
        if (page.isEmpty()) {
            err() << "FichaAlumno-pdf: no se ha podido hacer la página" << Qt::endl;
            ++failures;
        } else {
            out << page << Qt::endl;
            ++written;
        }
    }
    gConexion->Close();
    if (only.size() > written)
        err() << "Pantallas pedidas: " << only.join(u' ') << "; escritas: " << written << Qt::endl;
    return failures == 0 && written > 0 ? 0 : 1;
}
