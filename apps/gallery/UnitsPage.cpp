// Gallery page "Units": measure fields in several units, one that also takes a percentage,
// one with a special value, and a font size field; beside each, the last signals it sent.
#include "GalleryPage.h"
#include "controls/Ta_FontSizeEdit.h"
#include "controls/Ta_UnitEdit.h"
#include "style/Device.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>
#include <memory>

using TavoLib::Device;

namespace {

// Shows "typing: <text>" and "committed: <value>" as the field sends them.
QLabel *signalLog(Ta_UnitEdit *edit)
{
    auto *label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setStyleSheet(QStringLiteral("color: #444;"));
    label->setMinimumWidth(int(Device::scale(260)));
    auto typing = std::make_shared<QString>(QStringLiteral("-"));
    auto committed = std::make_shared<QString>(QStringLiteral("-"));
    auto refresh = [label, typing, committed] {
        label->setText(
            QStringLiteral("valueChanged: %1    valueOnComplete: %2").arg(*typing, *committed));
    };
    QObject::connect(edit, QOverload<const QString &>::of(&Ta_UnitEdit::valueChanged), label,
        [typing, refresh](const QString &text) {
            *typing = text;
            refresh();
        });
    QObject::connect(edit, &Ta_UnitEdit::valueOnComplete, label,
        [edit, committed, refresh](const UnitValue &value) {
            *committed = value.strWithUnit(
                edit->currentUnit() == edit->unit() ? edit->precision() : edit->secondPrecision());
            refresh();
        });
    refresh();
    return label;
}

void addRow(QGridLayout *grid, const QString &title, Ta_UnitEdit *edit, const UnitValue &value,
    const QString &typed = QString())
{
    const int row = grid->rowCount();
    edit->setMinimumWidth(int(Device::scale(140)));
    grid->addWidget(new QLabel(title), row, 0);
    grid->addWidget(edit, row, 1);
    grid->addWidget(signalLog(edit), row, 2);
    edit->setValue(value);
    if (!typed.isEmpty()) {
        // Typed and committed as a user would, so that both signals show.
        edit->setText(typed);
        emit edit->returnPressed();
    }
}

QWidget *makeUnitsPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);

    auto *box = new QGroupBox(QObject::tr("Measure fields"));
    auto *grid = new QGridLayout(box);
    grid->setColumnStretch(2, 1);

    auto *millimetres = new Ta_UnitEdit;
    millimetres->setMaximum(1000.0);
    addRow(grid, QObject::tr("Width (mm, max 1000)"), millimetres,
        UnitValue(210.0, CUnit(CUnit::MM)), QStringLiteral("10cm + 2pt"));

    auto *points = new Ta_UnitEdit;
    points->setUnit(Ta_UnitEdit::UnitPT);
    points->setPrecision(2);
    addRow(grid, QObject::tr("Rule weight (pt)"), points, UnitValue(0.5, CUnit(CUnit::PT)));

    auto *inches = new Ta_UnitEdit;
    inches->setUnit(Ta_UnitEdit::UnitInch);
    addRow(grid, QObject::tr("Margin (inch)"), inches, UnitValue(0.75, CUnit(CUnit::Inch)),
        QStringLiteral("(1/3 + 2/3) * 1,5 in"));

    auto *ciceros = new Ta_UnitEdit;
    ciceros->setUnit(Ta_UnitEdit::UnitCicero);
    ciceros->setPrecision(2);
    addRow(grid, QObject::tr("Column (cicero)"), ciceros, UnitValue(60.0, CUnit(CUnit::MM)));

    auto *angle = new Ta_UnitEdit;
    angle->setUnit(Ta_UnitEdit::UnitAngle);
    angle->setMinimum(-360.0);
    angle->setMaximum(360.0);
    angle->setPrecision(1);
    addRow(grid, QObject::tr("Rotation (degree)"), angle, UnitValue(-12.5, CUnit(CUnit::Angle)));

    auto *widthOrPercent = new Ta_UnitEdit;
    widthOrPercent->setUseSecondUnit(true);
    widthOrPercent->setSecondMaximum(200.0);
    addRow(grid, QObject::tr("Indent (mm or %)"), widthOrPercent, UnitValue(5.0, CUnit(CUnit::MM)),
        QStringLiteral("50%"));

    auto *leading = new Ta_UnitEdit;
    leading->setUnit(Ta_UnitEdit::UnitPT);
    leading->setMinimum(1.0);
    leading->setSpecialValue(0.0, QObject::tr("Auto"));
    addRow(grid, QObject::tr("Leading (pt or Auto)"), leading, UnitValue(0.0, CUnit(CUnit::PT)));

    auto *fontSize = new Ta_FontSizeEdit;
    fontSize->setUnit(Ta_UnitEdit::UnitPT);
    fontSize->setMinimum(1.0);
    fontSize->setMaximum(1000.0);
    fontSize->setPrecision(1);
    addRow(grid, QObject::tr("Font size (pt, or ch)"), fontSize, UnitValue(11.0, CUnit(CUnit::PT)),
        QStringLiteral("12 ch"));

    layout->addWidget(box);
    auto *hint = new QLabel(QObject::tr(
        "Type a number, a number with a unit (mm, cm, m, pt, dp, pi, c, dd, q, \", dz, %) or an "
        "expression such as 10mm + 2pt; Return or leaving the field commits."));
    hint->setWordWrap(true);
    layout->addWidget(hint);
    layout->addStretch(1);
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(40, "Units", makeUnitsPage)
