#pragma once

// Ta_FontSizeEdit is the measure field for font sizes. A font size is one number of two
// kinds: a positive size, and a negative size that the field shows as its absolute value
// followed by "ch" (typed as "12 ch" and stored as -12). Limits apply to the absolute value.
#include "controls/Ta_UnitEdit.h"

class TAVOLIBGUI_EXPORT Ta_FontSizeEdit : public Ta_UnitEdit
{
    Q_OBJECT
public:
    explicit Ta_FontSizeEdit(QWidget *parent = nullptr);

    // Adds the suffix to a text that has none yet.
    QString modifiedText(const QString &text) const override;
    // The text in front of the suffix (any case, blanks around it allowed), or the text
    // unchanged when it has no suffix.
    QString unmodifiedText(const QString &text) const override;
    // Always negative: the stored form of a size typed with the suffix.
    double modified(const double &value) const override;
    // The absolute value, as shown.
    double unmodified(const double &value) const override;
};
