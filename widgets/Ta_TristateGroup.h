#pragma once

// Ta_TristateGroup is a list of check boxes under one master box, as in "All pages" above the
// pages of a document. The master shows whether all, none or some (partly checked) of the
// boxes are checked; a click on it, or Space when it has the focus, checks all boxes, or
// unchecks them all when all were checked. Disabled boxes are counted but never changed by
// the master. The boxes are real QCheckBoxes in one column, indented under the master, in
// tab order from the top; a host may connect to them or change them directly, and the master
// follows.
//
// Signals come once per user action, after all boxes have their new state: toggled() for each
// box the action changed, then stateChanged() if the master's state changed. Setting a state
// from code (setChecked(), setAllChecked()) sends the same signals.
#include "style/TavoLibGuiExport.h"

#include <QList>
#include <QWidget>

class QCheckBox;
class QVBoxLayout;

class TAVOLIBGUI_EXPORT Ta_TristateGroup : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
public:
    explicit Ta_TristateGroup(QWidget *parent = nullptr);
    explicit Ta_TristateGroup(const QString &text, QWidget *parent = nullptr);
    ~Ta_TristateGroup() override;

    // The master box's text.
    QString text() const;
    void setText(const QString &text);

    // Appends a box; returns it (owned by the group).
    QCheckBox *addCheckBox(const QString &text, bool checked = false);
    // Removes and deletes all boxes but the master.
    void clear();
    int count() const { return mBoxes.size(); }
    // The box at `index`, or null out of range.
    QCheckBox *checkBox(int index) const;
    QCheckBox *masterBox() const { return mMaster; }
    // Old name of checkBox(), kept for existing hosts; logs that it is obsolete.
    QCheckBox *checkbox(int index) const;

    bool isChecked(int index) const;
    void setChecked(int index, bool checked);
    // Qt::Checked when all boxes are checked, Qt::Unchecked when none (or there are none),
    // else Qt::PartiallyChecked.
    Qt::CheckState checkState() const;
    // The indexes of the checked boxes, in order.
    QList<int> checkedIndexes() const;

public slots:
    // Checks or unchecks every enabled box.
    void setAllChecked(bool checked);

signals:
    void toggled(int index, bool checked);
    void stateChanged(Qt::CheckState state);

private:
    void boxToggled(QCheckBox *box, bool checked);
    void masterClicked();
    // Shows checkState() in the master and sends the signals collected since `before`.
    void finish(Qt::CheckState before);

    class MasterBox;
    QCheckBox *mMaster = nullptr;
    QVBoxLayout *mBoxLayout = nullptr;
    QList<QCheckBox *> mBoxes;
    // Boxes changed during one action, with their new state, for the signals at its end.
    QList<QPair<QCheckBox *, bool>> mPending;
    int mBusy = 0;
};
