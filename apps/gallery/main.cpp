// The gallery: every subsystem of the library on a page of its own, over the reference
// providers and a sample document. With --screenshot DIR, or without a display, it writes
// one PNG per page into DIR (default "shots") and exits.
#include "GalleryStyle.h"
#include "GalleryWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>

int main(int argc, char **argv)
{
    QString shotDir;
    bool shots = false;
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], "--screenshot") == 0) {
            shots = true;
            if (i + 1 < argc && argv[i + 1][0] != '-')
                shotDir = QString::fromLocal8Bit(argv[++i]);
        }
    }
    const bool haveDisplay = !qEnvironmentVariableIsEmpty("DISPLAY")
        || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (!haveDisplay && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        shots = true;
    if (shots) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        if (qEnvironmentVariableIsEmpty("QT_FONT_DPI"))
            qputenv("QT_FONT_DPI", "96");
    }
    if (shotDir.isEmpty())
        shotDir = QStringLiteral("shots");

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TavoLibGui Gallery"));
    QApplication::setStyle(new GalleryStyle);
    GalleryWindow window;
    if (shots) {
        window.show();
        const int written = window.writeScreenshots(shotDir);
        std::printf("gallery: wrote %d page(s) to %s\n", written, qPrintable(shotDir));
        return written == window.pageCount() ? 0 : 1;
    }
    window.show();
    return app.exec();
}
