// GuiStyle: polish rules, metrics and the geometry and painting of the skinned controls.
#include "style/GuiStyle.h"
#include "TestRegistry.h"
#include "style/Device.h"

#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOption>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

using TavoLib::Device;
using TavoLib::GuiStyle;

namespace {

QImage canvas(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QRgb at(const QImage &image, int x, int y)
{
    return image.convertToFormat(QImage::Format_ARGB32).pixel(x, y);
}

// Runs draw on a painter over a transparent image of the given size and returns the image.
template <class Draw> QImage paint(const QSize &size, Draw draw)
{
    QImage image = canvas(size);
    QPainter painter(&image);
    draw(&painter);
    painter.end();
    return image;
}

void applyStyle(QWidget *root, QStyle *style)
{
    root->setStyle(style);
    for (QWidget *w : root->findChildren<QWidget *>())
        w->setStyle(style);
}

} // namespace

class GuiStyleTest : public QObject
{
    Q_OBJECT

    GuiStyle *mStyle = nullptr;
    int s(double v) const { return int(Device::scale(v)); }

private slots:
    void init() { mStyle = new GuiStyle; }
    void cleanup() { delete mStyle; }

    void groupBoxMarginsDependOnNesting()
    {
        QGroupBox plain;
        auto *plainLayout = new QVBoxLayout(&plain);
        plainLayout->setSpacing(7);
        plainLayout->addWidget(new QLineEdit);
        mStyle->polish(&plain);
        QCOMPARE(plainLayout->spacing(), 0);
        QCOMPARE(plainLayout->contentsMargins(), QMargins(s(12), s(12), s(12), s(12)));

        QGroupBox outer;
        auto *outerLayout = new QVBoxLayout(&outer);
        outerLayout->setSpacing(7);
        auto *inner = new QGroupBox;
        outerLayout->addWidget(inner);
        mStyle->polish(&outer);
        QCOMPARE(outerLayout->spacing(), 7);
        QCOMPARE(outerLayout->contentsMargins(), QMargins(s(13), s(13), s(13), s(13)));

        QGroupBox empty; // no layout: nothing to set, nothing to crash on
        mStyle->polish(&empty);

        // Hover is tracked on the skinned controls only.
        QRadioButton radio;
        QLineEdit edit;
        edit.setAttribute(Qt::WA_Hover, false);
        mStyle->polish(&radio);
        mStyle->polish(&edit);
        QVERIFY(radio.testAttribute(Qt::WA_Hover) && !edit.testAttribute(Qt::WA_Hover));
        mStyle->unpolish(&radio);
        QVERIFY(!radio.testAttribute(Qt::WA_Hover));
    }

    void groupBoxTitleOfZeroWidthKeepsItsCaps()
    {
        QStyleOptionGroupBox option;
        option.rect = QRect(0, 0, 200, 100);
        option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
        option.state = QStyle::State_Enabled;
        const QPixmap cap = Device::pixmap(QStringLiteral(":res/images/title_cap_left.png"), 4, 18);
        const int w = int(Device::scale(20.0));
        const QRect label
            = mStyle->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel);
        const int capWidth = Device::logicalSize(cap).width();
        QCOMPARE(label, QRect(option.rect.center().x() - w / 2 + capWidth, 0, w - 2 * capWidth,
                            Device::logicalSize(Device::pixmap(
                                QStringLiteral(":res/images/title_stretch.png"), 1, 18)).height()));
        QStyleOptionComplex wrong;
        QCOMPARE(
            mStyle->subControlRect(QStyle::CC_GroupBox, &wrong, QStyle::SC_GroupBoxLabel), QRect());

        const QImage image = paint(option.rect.size(),
            [&](QPainter *p) { mStyle->drawComplexControl(QStyle::CC_GroupBox, &option, p); });
        const int leftCap = option.rect.center().x() - w / 2;
        QCOMPARE(qAlpha(at(image, leftCap + 1, 9)), 255);
        QCOMPARE(qAlpha(at(image, label.right() + 2, 9)), 255);
    }

    // Skinned buttons in a shown window, driven by real events.
    void buttonsInAWindow()
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *group = new QGroupBox(QStringLiteral("Group"));
        auto *inside = new QPushButton(QStringLiteral("Inside"));
        (new QVBoxLayout(group))->addWidget(inside);
        auto *button = new QPushButton(QStringLiteral("Outside"));
        auto *edit = new QLineEdit;
        layout->addWidget(group);
        layout->addWidget(button);
        layout->addWidget(edit);
        applyStyle(&window, mStyle);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        // The top left corner of a cap is transparent. Inside the group box it shows the
        // light gradient, not the box's dark translucent frame; elsewhere the window.
        const QRgb in = at(inside->grab().toImage(), 0, 0);
        QVERIFY(qAlpha(in) == 255 && qRed(in) >= 224);
        QCOMPARE(
            QColor(at(button->grab().toImage(), 0, 0)), window.palette().color(QPalette::Window));

        // Keyboard focus draws no rectangle.
        edit->setFocus();
        const QImage unfocused = button->grab().toImage();
        QTest::keyClick(edit, Qt::Key_Tab, Qt::ShiftModifier);
        QVERIFY(QTest::qWaitFor([&] { return button->hasFocus(); }));
        QCOMPARE(button->grab().toImage(), unfocused);

        // Pressing swaps in the darker images; releasing brings the normal ones back.
        const QRgb normal = at(unfocused, 30, 4);
        QTest::mousePress(button, Qt::LeftButton, {}, button->rect().center());
        QVERIFY(qGray(at(button->grab().toImage(), 30, 4)) < qGray(normal));
        QTest::mouseRelease(button, Qt::LeftButton, {}, button->rect().center());
        QCOMPARE(at(button->grab().toImage(), 30, 4), normal);
    }

    void hoverPillOnlyWhenEnabled()
    {
        QRadioButton radio(QStringLiteral("Option"));
        radio.resize(120, 20);
        QStyleOptionButton option;
        option.rect = QRect(0, 3, 12, 14);
        for (bool enabled : { false, true }) {
            option.state = QStyle::State_MouseOver | QStyle::State_On;
            if (enabled)
                option.state |= QStyle::State_Enabled;
            const QImage image = paint(radio.size(), [&](QPainter *p) {
                mStyle->drawPrimitive(QStyle::PE_IndicatorRadioButton, &option, p, &radio);
            });
            // Far right of the widget, in the pill's half circle but away from the indicator.
            const QRgb px = at(image, 100, 10);
            QCOMPARE(qAlpha(px), enabled ? 150 : 0);
            // The indicator itself, at whatever size the density gives it.
            bool opaque = false;
            for (int y = option.rect.top(); y <= option.rect.bottom() && !opaque; ++y)
                for (int x = option.rect.left(); x <= option.rect.right() && !opaque; ++x)
                    opaque = qAlpha(at(image, x, y)) == 255;
            QVERIFY(opaque);
        }
    }

    void iconOnlyToolButtonColours()
    {
        QPixmap square(12, 12);
        square.fill(Qt::black);
        QToolButton button;
        button.setIcon(QIcon(square));
        button.setCheckable(true);
        button.setChecked(true);
        button.resize(24, 24);
        QStyleOptionToolButton option;
        option.rect = button.rect();
        option.state = QStyle::State_Enabled | QStyle::State_MouseOver | QStyle::State_On;
        option.subControls = QStyle::SC_ToolButton;
        option.iconSize = QSize(12, 12);
        // Checked under the mouse: a dark backdrop and the highlight colour. Down: the down
        // colour wins over the highlight, without a backdrop.
        for (bool down : { false, true }) {
            button.setDown(down);
            const QImage image = paint(button.size(), [&](QPainter *p) {
                mStyle->drawComplexControl(QStyle::CC_ToolButton, &option, p, &button);
            });
            const QColor colour = down ? QColor(Qt::white).darker(150)
                                       : QApplication::palette().color(QPalette::Highlight);
            QCOMPARE(QColor(at(image, 12, 12)).rgb(), colour.rgb());
            QCOMPARE(qAlpha(at(image, 3, 3)) > 0, !down);
        }
    }

    void toolButtonLabelWithTextAndIcon()
    {
        QPixmap square(16, 16);
        square.fill(Qt::black);
        QStyleOptionToolButton option;
        option.rect = QRect(0, 0, 120, 24);
        option.state = QStyle::State_Enabled;
        option.toolButtonStyle = Qt::ToolButtonTextBesideIcon;
        option.icon = QIcon(square);
        option.iconSize = QSize(16, 16);
        option.text = QStringLiteral("Label");
        option.palette.setColor(QPalette::ButtonText, Qt::black);
        auto label = [&] {
            return paint(option.rect.size(),
                [&](QPainter *p) { mStyle->drawControl(QStyle::CE_ToolButtonLabel, &option, p); });
        };
        QImage image = label();
        // The icon is centred in a box of its width plus 10 at the left.
        const int box = 16 + s(10.0);
        QCOMPARE(qAlpha(at(image, box / 2, 12)), 255);
        QCOMPARE(qAlpha(at(image, box - 2, 3)), 0);

        // Checked: the icon is drawn in light grey.
        option.state |= QStyle::State_On;
        image = label();
        QCOMPARE(QColor(at(image, box / 2, 12)).rgb(), QColor(200, 200, 200).rgb());

        // An arrow button with icon only paints nothing in its label.
        option.features = QStyleOptionToolButton::Arrow;
        option.toolButtonStyle = Qt::ToolButtonIconOnly;
        QCOMPARE(label(), canvas(option.rect.size()));
    }

    void wrongOptionTypesDrawNothing()
    {
        QStyleOption plain;
        plain.rect = QRect(0, 0, 30, 30);
        plain.state = QStyle::State_Enabled | QStyle::State_MouseOver;
        QStyleOptionComplex complex;
        complex.rect = plain.rect;
        const QImage image = paint(QSize(30, 30), [&](QPainter *p) {
            for (auto element : { QStyle::PE_FrameGroupBox, QStyle::PE_PanelButtonCommand,
                     QStyle::PE_IndicatorRadioButton })
                mStyle->drawPrimitive(element, &plain, p);
            for (auto control : { QStyle::CC_Slider, QStyle::CC_GroupBox, QStyle::CC_ToolButton })
                mStyle->drawComplexControl(control, &complex, p);
        });
        QCOMPARE(image, canvas(QSize(30, 30)));
    }
};

TAVO_TEST(GuiStyleTest)
#include "GuiStyleTest.moc"
