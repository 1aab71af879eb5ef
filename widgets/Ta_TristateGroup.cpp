#include "widgets/Ta_TristateGroup.h"
#include "style/Device.h"

#include <QCheckBox>
#include <QDebug>
#include <QPointer>
#include <QVBoxLayout>

using TavoLib::Device;

// The master cycles between checked and unchecked by the user; partly checked is only ever
// shown, never reached by a click.
class Ta_TristateGroup::MasterBox : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;
    Ta_TristateGroup *mGroup = nullptr;

protected:
    void nextCheckState() override { mGroup->masterClicked(); }
};

Ta_TristateGroup::Ta_TristateGroup(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *master = new MasterBox(this);
    master->mGroup = this;
    mMaster = master;
    mMaster->setTristate(true);
    layout->addWidget(mMaster);
    mBoxLayout = new QVBoxLayout;
    mBoxLayout->setContentsMargins(int(Device::scale(20.0)), 0, 0, 0);
    layout->addLayout(mBoxLayout);
    // Nothing in it yet: the master is unchecked, and there is nothing to check.
    mMaster->setEnabled(false);
}

Ta_TristateGroup::Ta_TristateGroup(const QString &text, QWidget *parent) : Ta_TristateGroup(parent)
{
    setText(text);
}

Ta_TristateGroup::~Ta_TristateGroup()
{
    // The boxes go after this part of the group: they must not report to it any more.
    for (QCheckBox *box : qAsConst(mBoxes))
        disconnect(box, nullptr, this, nullptr);
}

QString Ta_TristateGroup::text() const
{
    return mMaster->text();
}

void Ta_TristateGroup::setText(const QString &text)
{
    mMaster->setText(text);
}

QCheckBox *Ta_TristateGroup::addCheckBox(const QString &text, bool checked)
{
    const Qt::CheckState before = checkState();
    auto *box = new QCheckBox(text, this);
    box->setChecked(checked);
    mBoxLayout->addWidget(box);
    // Tab order follows the column: after the last box, or after the master.
    setTabOrder(mBoxes.isEmpty() ? static_cast<QWidget *>(mMaster) : mBoxes.last(), box);
    mBoxes.append(box);
    connect(box, &QCheckBox::toggled, this, [this, box](bool on) { boxToggled(box, on); });
    connect(box, &QObject::destroyed, this, [this, box] {
        mBoxes.removeAll(box);
        if (mMaster)
            mMaster->setCheckState(checkState());
    });
    mMaster->setEnabled(true);
    mMaster->setCheckState(checkState());
    if (checkState() != before)
        emit stateChanged(checkState());
    return box;
}

void Ta_TristateGroup::clear()
{
    const Qt::CheckState before = checkState();
    const QList<QCheckBox *> boxes = mBoxes;
    mBoxes.clear();
    qDeleteAll(boxes);
    mMaster->setCheckState(Qt::Unchecked);
    mMaster->setEnabled(false);
    if (before != Qt::Unchecked)
        emit stateChanged(Qt::Unchecked);
}

QCheckBox *Ta_TristateGroup::checkBox(int index) const
{
    return index >= 0 && index < mBoxes.size() ? mBoxes.at(index) : nullptr;
}

QCheckBox *Ta_TristateGroup::checkbox(int index) const
{
    qDebug("Funktion: Ta_TristateGroup::checkbox obsolete");
    return checkBox(index);
}

bool Ta_TristateGroup::isChecked(int index) const
{
    const QCheckBox *box = checkBox(index);
    return box && box->isChecked();
}

void Ta_TristateGroup::setChecked(int index, bool checked)
{
    if (QCheckBox *box = checkBox(index))
        box->setChecked(checked);
}

Qt::CheckState Ta_TristateGroup::checkState() const
{
    int checked = 0;
    for (const QCheckBox *box : mBoxes)
        checked += box->isChecked() ? 1 : 0;
    if (checked == 0)
        return Qt::Unchecked;
    return checked == mBoxes.size() ? Qt::Checked : Qt::PartiallyChecked;
}

QList<int> Ta_TristateGroup::checkedIndexes() const
{
    QList<int> indexes;
    for (int i = 0; i < mBoxes.size(); ++i)
        if (mBoxes.at(i)->isChecked())
            indexes.append(i);
    return indexes;
}

void Ta_TristateGroup::setAllChecked(bool checked)
{
    const Qt::CheckState before = checkState();
    ++mBusy;
    for (QCheckBox *box : mBoxes)
        if (box->isEnabled())
            box->setChecked(checked);
    --mBusy;
    finish(before);
}

void Ta_TristateGroup::masterClicked()
{
    // All checked: uncheck all; none or some: check all.
    setAllChecked(checkState() != Qt::Checked);
}

void Ta_TristateGroup::boxToggled(QCheckBox *box, bool checked)
{
    mPending.append(qMakePair(box, checked));
    if (mBusy)
        return;
    // One box alone: the state before it changed is the present state with it undone.
    int checkedCount = 0;
    for (const QCheckBox *b : mBoxes)
        checkedCount += b->isChecked() ? 1 : 0;
    checkedCount += checked ? -1 : 1;
    const Qt::CheckState before = checkedCount == 0 ? Qt::Unchecked
        : checkedCount == mBoxes.size()                 ? Qt::Checked
                                                        : Qt::PartiallyChecked;
    finish(before);
}

void Ta_TristateGroup::finish(Qt::CheckState before)
{
    const Qt::CheckState now = checkState();
    mMaster->setCheckState(now);
    const QList<QPair<QCheckBox *, bool>> pending = mPending;
    mPending.clear();
    // A host's handler may delete the group or boxes: stop when the group is gone.
    QPointer<Ta_TristateGroup> self(this);
    for (const auto &change : pending) {
        const int index = mBoxes.indexOf(change.first);
        if (index >= 0)
            emit toggled(index, change.second);
        if (!self)
            return;
    }
    if (now != before)
        emit stateChanged(now);
}
