#pragma once

// Ta_ColorSelector picks a colour with the strips of one colour model at a time (HSV, RGB,
// CMYK or Lab), one row per component with its number beside it, a swatch of the colour it
// started from and the colour now chosen, and the colour as "#rrggbb" to type or copy.
// Changing the model keeps the colour. colorChanged() is sent for the user's changes only.
#include "controls/Ta_ColorComponentSelector.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QSpinBox;
class QGridLayout;

class TAVOLIBGUI_EXPORT Ta_ColorSelector : public QWidget
{
    Q_OBJECT
public:
    using Model = Ta_ColorComponentSelector::ColorType;

    explicit Ta_ColorSelector(QWidget *parent = nullptr);
    ~Ta_ColorSelector() override;

    // Sets both the starting and the chosen colour.
    void setColor(const QColor &color);
    QColor color() const { return mColor; }
    QColor oldColor() const { return mOldColor; }

    void setModel(Model model);
    Model model() const { return mModel; }

    // Lab needs a colour matcher; the reference matcher serves until a host sets its own.
    void setColorMatcher(TAutoPtr<TavoLib::ColorMatcher> matcher);

signals:
    void colorChanged(const QColor &color);

private:
    void buildRows();
    // Takes the colour from the strip that the user moved, or from the number beside it.
    void takeFrom(Ta_ColorComponentSelector *strip);
    void showColor(const QColor &color, Ta_ColorComponentSelector *except);
    void hexEdited();

    Model mModel = Ta_ColorComponentSelector::HSV;
    QColor mColor = Qt::white;
    QColor mOldColor = Qt::white;
    TAutoPtr<TavoLib::ColorMatcher> mMatcher;
    bool mUpdating = false;

    QComboBox *mModelCombo;
    QGridLayout *mRows;
    QList<Ta_ColorComponentSelector *> mStrips;
    QList<QSpinBox *> mNumbers;
    QList<QLabel *> mLabels;
    QLabel *mOldSwatch;
    QLabel *mNewSwatch;
    QLineEdit *mHex;
};
