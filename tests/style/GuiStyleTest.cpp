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
#include <QSlider>
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

    void metricsAndRects()
    {
        QCOMPARE(mStyle->pixelMetric(QStyle::PM_SliderLength), s(13.0));
        QPushButton button(QStringLiteral("Apply"));
        button.setStyle(mStyle);
        QCOMPARE(button.sizeHint().height(), s(26.0));

        QRadioButton radio(QStringLiteral("Option"));
        radio.resize(120, 20);
        QStyleOptionButton option;
        option.rect = radio.rect();
        QCOMPARE(mStyle->subElementRect(QStyle::SE_RadioButtonClickRect, &option, &radio),
            radio.rect().adjusted(s(5.0), 0, s(-5.0), 0));

        QSlider slider(Qt::Horizontal);
        slider.resize(200, 27);
        QStyleOptionSlider sliderOption;
        sliderOption.initFrom(&slider);
        sliderOption.maximum = 100;
        sliderOption.sliderPosition = 50;
        QCOMPARE(mStyle->sizeFromContents(QStyle::CT_Slider, &sliderOption, QSize(80, 10)).height(),
            s(27.0));
        const QRect groove = mStyle->subControlRect(
            QStyle::CC_Slider, &sliderOption, QStyle::SC_SliderGroove, &slider);
        QCOMPARE(groove.top(), s(9.0));
        QCOMPARE(groove.height(), s(9.0));
    }

    void polishesThePaletteWindowOnly()
    {
        QPalette palette;
        const QColor button = palette.color(QPalette::Button);
        mStyle->polish(palette);
        for (auto group : { QPalette::Active, QPalette::Inactive, QPalette::Disabled })
            QCOMPARE(palette.color(group, QPalette::Window), QColor(241, 241, 241));
        QCOMPARE(palette.color(QPalette::Button), button);
    }

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
        mStyle->polish(static_cast<QWidget *>(nullptr));
    }

    void hoverIsTrackedOnSkinnedControlsOnly()
    {
        QPushButton push;
        QRadioButton radio;
        QSlider slider;
        QLineEdit edit;
        for (QWidget *w : std::initializer_list<QWidget *> { &push, &radio, &slider, &edit }) {
            w->setAttribute(Qt::WA_Hover, false);
            mStyle->polish(w);
        }
        QVERIFY(push.testAttribute(Qt::WA_Hover) && radio.testAttribute(Qt::WA_Hover));
        QVERIFY(slider.testAttribute(Qt::WA_Hover) && !edit.testAttribute(Qt::WA_Hover));
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
        QCOMPARE(label,
            QRect(option.rect.center().x() - w / 2 + cap.width(), 0, w - 2 * cap.width(), 18));
        QStyleOptionComplex wrong;
        QCOMPARE(
            mStyle->subControlRect(QStyle::CC_GroupBox, &wrong, QStyle::SC_GroupBoxLabel), QRect());

        const QImage image = paint(option.rect.size(),
            [&](QPainter *p) { mStyle->drawComplexControl(QStyle::CC_GroupBox, &option, p); });
        const int leftCap = option.rect.center().x() - w / 2;
        QCOMPARE(qAlpha(at(image, leftCap + 1, 9)), 255);
        QCOMPARE(qAlpha(at(image, label.right() + 2, 9)), 255);
    }

    void focusDrawsNoRectangle()
    {
        // A real button looks the same with and without keyboard focus.
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *button = new QPushButton(QStringLiteral("Focus"));
        auto *other = new QLineEdit;
        layout->addWidget(button);
        layout->addWidget(other);
        applyStyle(&window, mStyle);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        other->setFocus();
        const QImage unfocused = button->grab().toImage();
        QTest::keyClick(other, Qt::Key_Tab, Qt::ShiftModifier);
        QVERIFY(QTest::qWaitFor([&] { return button->hasFocus(); }));
        QCOMPARE(button->grab().toImage(), unfocused);
    }

    void pushButtonInGroupBoxGetsTheGradientBehindItsCaps()
    {
        QWidget dialog;
        auto *layout = new QVBoxLayout(&dialog);
        auto *group = new QGroupBox(QStringLiteral("Group"));
        auto *groupLayout = new QVBoxLayout(group);
        auto *inside = new QPushButton(QStringLiteral("Inside"));
        groupLayout->addWidget(inside);
        auto *outside = new QPushButton(QStringLiteral("Outside"));
        layout->addWidget(group);
        layout->addWidget(outside);
        applyStyle(&dialog, mStyle);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));

        // The top left corner of a cap is transparent. Inside the group box it shows the
        // light gradient, not the box's dark translucent frame.
        const QRgb in = at(inside->grab().toImage(), 0, 0);
        QCOMPARE(qAlpha(in), 255);
        QVERIFY(qRed(in) >= 224 && qRed(in) <= 255);
        // Without a group box the corner shows the window, unchanged.
        QCOMPARE(
            QColor(at(outside->grab().toImage(), 0, 0)), dialog.palette().color(QPalette::Window));
    }

    void pressingAButtonSwapsItsImages()
    {
        QPushButton button(QStringLiteral("Press"));
        button.setStyle(mStyle);
        button.resize(100, s(26.0));
        button.show();
        QVERIFY(QTest::qWaitForWindowExposed(&button));
        const QPoint middle(50, button.height() / 2);
        const QRgb normal = at(button.grab().toImage(), 30, 4);
        QTest::mousePress(&button, Qt::LeftButton, {}, middle);
        QVERIFY(button.isDown());
        const QRgb pressed = at(button.grab().toImage(), 30, 4);
        QVERIFY(qGray(pressed) < qGray(normal));
        QTest::mouseRelease(&button, Qt::LeftButton, {}, middle);
        QCOMPARE(at(button.grab().toImage(), 30, 4), normal);
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
            QVERIFY(qAlpha(at(image, 6, 9)) == 255); // the indicator itself
        }
    }

    void iconOnlyToolButtonColours_data()
    {
        QTest::addColumn<bool>("down");
        QTest::addColumn<bool>("backdrop");
        QTest::addColumn<QColor>("colour");
        const QColor highlight = QApplication::palette().color(QPalette::Highlight);
        QTest::newRow("checked under mouse") << false << true << highlight;
        QTest::newRow("down under mouse") << true << false << QColor(Qt::white).darker(150);
    }
    void iconOnlyToolButtonColours()
    {
        QFETCH(bool, down);
        QFETCH(bool, backdrop);
        QFETCH(QColor, colour);
        QPixmap square(12, 12);
        square.fill(Qt::black);
        QToolButton button;
        button.setIcon(QIcon(square));
        button.setCheckable(true);
        button.setChecked(true);
        button.setDown(down);
        button.resize(24, 24);
        QStyleOptionToolButton option;
        option.rect = button.rect();
        option.state = QStyle::State_Enabled | QStyle::State_MouseOver | QStyle::State_On;
        option.subControls = QStyle::SC_ToolButton;
        option.icon = button.icon();
        option.iconSize = QSize(12, 12);
        const QImage image = paint(button.size(), [&](QPainter *p) {
            mStyle->drawComplexControl(QStyle::CC_ToolButton, &option, p, &button);
        });
        QCOMPARE(QColor(at(image, 12, 12)).rgb(), colour.rgb());
        QCOMPARE(qAlpha(at(image, 3, 3)) > 0, backdrop);
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
