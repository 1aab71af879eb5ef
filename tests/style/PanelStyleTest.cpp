// Device::scale(QWidget*) under a panel style, recognised by the class name
// "Panels::PanelStyle" anywhere in the style's inheritance: controls whose height such a style
// fixes only get their widths scaled.
#include "TestRegistry.h"
#include "style/Device.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QTest>

namespace Panels {
class PanelStyle : public QProxyStyle
{
    Q_OBJECT
};
} // namespace Panels

// The check must look through the inheritance chain, not at the concrete class.
class DerivedPanelStyle : public Panels::PanelStyle
{
    Q_OBJECT
};

using TavoLib::Device;

class PanelStyleTest : public QObject
{
    Q_OBJECT

    double f() const { return QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0; }
    int near(double v) const { return int(v * f() + 0.5); }
    int trunc(double v) const { return int(v * f()); }

private slots:
    void framedControlsScaleOnlyTheirWidths()
    {
        DerivedPanelStyle style;
        QWidget root;
        root.setStyle(&style);
        auto *button = new QPushButton(&root);
        button->setMinimumWidth(100);
        button->setFixedHeight(30);
        auto *edit = new QLineEdit(&root);
        edit->setMinimumSize(101, 10);
        auto *spin = new QSpinBox(&root);
        spin->setMaximumWidth(99);
        spin->setMaximumHeight(40);
        auto *header = new QHeaderView(Qt::Horizontal, &root);
        header->setMinimumHeight(21);
        auto *combo = new QComboBox(&root);
        combo->setMinimumSize(50, 20);

        Device::scale(&root);

        // Panel widths truncate; heights stay as they were.
        QCOMPARE(button->minimumWidth(), trunc(100));
        QCOMPARE(button->minimumHeight(), 30);
        QCOMPARE(button->maximumHeight(), 30);
        QCOMPARE(edit->minimumSize(), QSize(trunc(101), 10));
        QCOMPARE(spin->maximumSize(), QSize(trunc(99), 40));
        QCOMPARE(header->minimumHeight(), 21);
        QCOMPARE(combo->minimumSize(), QSize(trunc(50), 20));
        if (qFuzzyCompare(f(), 1.5))
            QCOMPARE(button->minimumWidth(), 150);
    }

    void otherControlsAndChildStylesTakeTheGeneralPath()
    {
        Panels::PanelStyle style;
        QWidget root;
        root.setStyle(&style);
        auto *combo = new QComboBox(&root);
        combo->setFrame(false);
        combo->setMinimumSize(50, 21);
        auto *vertical = new QHeaderView(Qt::Vertical, &root);
        vertical->setMinimumSize(9, 9);
        auto *plain = new QWidget(&root);
        plain->setMinimumWidth(100);
        // Only the root's style counts: a panel-styled child under a plain root is scaled fully.
        QWidget plainRoot;
        auto *button = new QPushButton(&plainRoot);
        button->setStyle(&style);
        button->setFixedHeight(30);

        Device::scale(&root);
        Device::scale(&plainRoot);

        QCOMPARE(combo->minimumSize(), QSize(near(50), near(21)));
        QCOMPARE(vertical->minimumSize(), QSize(near(9), near(9)));
        QCOMPARE(plain->minimumSize(), QSize(near(100), 0));
        QCOMPARE(button->minimumHeight(), near(30));
        QCOMPARE(button->maximumHeight(), trunc(30));
    }
};

TAVO_TEST(PanelStyleTest)
#include "PanelStyleTest.moc"
