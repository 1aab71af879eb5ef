// The palette title bar on a real X server, without and with a window manager (no compositor
// in either): the frameless palette shows, dragging its bar moves the window where the server
// has it, a double click collapses and expands it, the close button hides it, and the keyboard
// moves, collapses and closes it. Input comes from the server (XTEST), as a user's would.
// Run by tests/menus/xcb/run-under-xvfb.sh; with TAVO_TEST_WM set, this program starts that
// window manager before the application and stops it at the end (skipped when not installed).
#include "TestRegistry.h"
#include "TitleBarPalette.h"
#include "XServerProbe.h"
#include "style/Device.h"
#include "widgets/OmaTitleBar.h"
#include "widgets/WindowButton.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QScreen>
#include <QStandardPaths>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include <csignal>
#include <cstdio>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace {

// Counts the mouse buttons a widget gets pressed and released, to go on at a hand's pace.
struct ButtonCount : QObject
{
    int presses = 0;
    int releases = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        presses += event->type() == QEvent::MouseButtonPress ? 1 : 0;
        releases += event->type() == QEvent::MouseButtonRelease ? 1 : 0;
        return false;
    }
};

// The shared palette, placed on the X server.
struct Palette : TitleBarPalette
{
    // Where a point of a child is on the screen, from the window's place on the server.
    QPoint onScreen(const XServerProbe &x, QWidget *child, const QPoint &at) const
    {
        return x.position(window.winId()) + child->mapTo(&window, at);
    }
};

} // namespace

class OmaTitleBarXcbTest : public QObject
{
    Q_OBJECT
    XServerProbe *mX = nullptr;

private slots:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != QLatin1String("xcb"))
            QSKIP("needs an X server: run through run-under-xvfb.sh");
        mX = new XServerProbe;
        QVERIFY2(mX->isValid(), "no X server with XTEST");
        const bool managed = !qEnvironmentVariableIsEmpty("TAVO_TEST_WM");
        QCOMPARE(!mX->windowManager().isEmpty(), managed);
        qInfo("window manager: %s", managed ? qPrintable(mX->windowManager()) : "none");
    }
    void cleanupTestCase() { delete mX; }

    void showsMovesCollapsesAndClosesByMouse()
    {
        Palette p;
        QVERIFY(QTest::qWaitForWindowExposed(&p.window));
        const WId id = p.window.winId();
        QTRY_VERIFY(mX->isViewable(id));
        QTRY_COMPARE(mX->size(id), QSize(240, 200));
        // On the screen as the bar draws itself.
        const QPoint middle(p.bar->width() / 2, p.bar->height() / 2);
        const QColor drawn = p.bar->grab().toImage().pixelColor(middle);
        QTRY_COMPARE(QGuiApplication::primaryScreen()->grabWindow(0).toImage().pixelColor(
                         p.onScreen(*mX, p.bar, middle)),
            drawn);
        saveScreenshot();

        // Drag by the bar: the server has the window where the pointer took it.
        const QPoint start = mX->position(id);
        const QPoint grip = p.onScreen(*mX, p.bar, QPoint(30, p.bar->height() / 2));
        ButtonCount bar;
        p.bar->installEventFilter(&bar);
        mX->press(grip);
        QTRY_COMPARE(bar.presses, 1);
        mX->moveTo(grip + QPoint(20, 10));
        mX->moveTo(grip + QPoint(60, 40));
        mX->release(grip + QPoint(60, 40));
        QTRY_COMPARE(mX->position(id), start + QPoint(60, 40));
        QTRY_COMPARE(p.window.geometry().topLeft(), mX->position(id));

        // A double click collapses to the bar, another expands to the former height.
        const QPoint title = p.onScreen(*mX, p.bar, QPoint(30, p.bar->height() / 2));
        auto doubleClick = [&] {
            // The second click once the first is taken, well within the double click time.
            const int before = bar.releases;
            mX->click(title);
            QTRY_COMPARE(bar.releases, before + 1);
            mX->click(title);
            QTRY_COMPARE(bar.releases, before + 2);
        };
        doubleClick();
        QTRY_VERIFY(p.bar->isCollapsed());
        QTRY_COMPARE(mX->size(id).height(), p.bar->height());
        QVERIFY(!p.content->isVisible());
        doubleClick();
        QTRY_VERIFY(!p.bar->isCollapsed());
        QTRY_COMPARE(mX->size(id).height(), 200);
        QCOMPARE(mX->position(id), start + QPoint(60, 40));

        // The close button hides the palette.
        WindowButton *close = p.bar->button(OmaTitleBar::CloseButton);
        mX->click(p.onScreen(*mX, close, close->rect().center()));
        QTRY_VERIFY(!p.window.isVisible());
        QTRY_VERIFY(!mX->isViewable(id));
    }

    void movesCollapsesAndClosesByKeyboard()
    {
        Palette p;
        p.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&p.window));
        const WId id = p.window.winId();
        p.content->setFocus();
        QTRY_VERIFY(p.content->hasFocus());

        // From the field to the bar, then Ctrl+arrows move the window on the server.
        mX->keyClick(Keysym::Tab);
        QTRY_VERIFY(p.bar->hasFocus());
        const QPoint start = mX->position(id);
        const int step = int(TavoLib::Device::scale(10.0));
        mX->keyClick(Keysym::Right, Keysym::ControlL);
        mX->keyClick(Keysym::Up, Keysym::ControlL);
        mX->keyClick(Keysym::Right, Keysym::ControlL);
        QTRY_COMPARE(mX->position(id), start + QPoint(2 * step, -step));

        mX->keyClick(Keysym::Space);
        QTRY_COMPARE(mX->size(id).height(), p.bar->height());
        QVERIFY(p.bar->isCollapsed());
        mX->keyClick(Keysym::Space);
        QTRY_COMPARE(mX->size(id).height(), 200);

        // The buttons follow the bar in the tab order; Space on the close button hides it.
        for (OmaTitleBar::Button b :
            { OmaTitleBar::CollapseButton, OmaTitleBar::FloatButton, OmaTitleBar::CloseButton }) {
            mX->keyClick(Keysym::Tab);
            QTRY_COMPARE(QApplication::focusWidget(), p.bar->button(b));
        }
        mX->keyClick(Keysym::Space);
        QTRY_VERIFY(!mX->isViewable(id));
        QVERIFY(!p.window.isVisible());
    }

private:
    // With TAVO_TEST_SCREENSHOTS set to a folder, the screen as the server shows it, to look at.
    void saveScreenshot() const
    {
        const QString folder = qEnvironmentVariable("TAVO_TEST_SCREENSHOTS");
        if (folder.isEmpty())
            return;
        const QString wm = qEnvironmentVariable("TAVO_TEST_WM", QStringLiteral("bare"));
        QVERIFY(QGuiApplication::primaryScreen()->grabWindow(0).save(
            QDir(folder).filePath(QStringLiteral("titlebar-%1.png").arg(wm))));
    }
};

TAVO_TEST(OmaTitleBarXcbTest)

namespace {

// Starts the window manager TAVO_TEST_WM names and waits until it has taken the screen.
// Returns its process id, 0 when none is asked, -1 when it is not installed (the message is
// printed), -2 when it does not start.
pid_t startWindowManager()
{
    const QString name = qEnvironmentVariable("TAVO_TEST_WM");
    if (name.isEmpty())
        return 0;
    const QString path = QStandardPaths::findExecutable(name);
    if (path.isEmpty()) {
        std::printf("SKIP: the window manager %s is not installed\n", qPrintable(name));
        return -1;
    }
    QByteArray program = QFile::encodeName(path);
    QByteArray arg0 = QFile::encodeName(name);
    char *argv[] = { arg0.data(), nullptr };
    pid_t pid = 0;
    if (posix_spawn(&pid, program.constData(), nullptr, nullptr, argv, environ) != 0)
        return -2;
    XServerProbe x;
    QElapsedTimer waited;
    waited.start();
    while (x.isValid() && x.windowManager().isEmpty() && waited.elapsed() < 10000)
        usleep(20000);
    if (!x.isValid() || x.windowManager().isEmpty()) {
        std::printf("FAIL: the window manager %s did not start\n", qPrintable(name));
        kill(pid, SIGTERM);
        waitpid(pid, nullptr, 0);
        return -2;
    }
    return pid;
}

} // namespace

// Not the suites' common main: the window manager has to run before the application connects,
// which reads what the manager supports once.
int main(int argc, char **argv)
{
    const pid_t wm = startWindowManager();
    if (wm == -1)
        return 77; // skipped
    if (wm < 0)
        return 1;
    int failed = 0;
    {
        QApplication app(argc, argv);
        failed = TavoTest::runRegistered(argc, argv);
    }
    if (wm > 0) {
        kill(wm, SIGTERM);
        waitpid(wm, nullptr, 0);
    }
    return failed;
}

#include "OmaTitleBarXcbTest.moc"
