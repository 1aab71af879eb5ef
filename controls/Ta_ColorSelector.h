#pragma once

// Ta_ColorSelector picks a colour with the strips of one colour model at a time (HSV, RGB,
// CMYK or Lab), one row per component with its number beside it, a swatch of the colour it
// started from and the colour now chosen, and the colour as "#rrggbb" to type or copy.
// Changing the model keeps the colour. colorChanged() is sent for the user's changes only.
//
// The colour is given and taken in the model's own numbers: in the CMYK model color() and
// colorChanged() carry a QColor held as CMYK (QColor::Cmyk), and setColor takes a Cmyk (or Hsv) QColor
// without passing through 8-bit RGB, so C 10 M 20 Y 30 K 40 comes back as set. Lab has no
// QColor form: setLab and lab give it in doubles. Other models give RGB colours.
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
    // The same with a colour in Lab (L 0 to 100, a and b -128 to 127), kept exactly in the
    // Lab model; lab() gives the colour now in Lab.
    void setLab(double l, double a, double b);
    void lab(double &l, double &a, double &b) const;
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
    // Shows the colour of `source` (or of the first row) in the numbers, swatch and field.
    void showColor(Ta_ColorComponentSelector *source);
    void hexEdited();
    // Sends colorChanged; rows replaced meanwhile are deleted later, not under their own code.
    void announce();

    Model mModel = Ta_ColorComponentSelector::HSV;
    QColor mColor = Qt::white;
    QColor mOldColor = Qt::white;
    TAutoPtr<TavoLib::ColorMatcher> mMatcher;
    bool mUpdating = false;
    int mCallingOut = 0;

    QComboBox *mModelCombo;
    QGridLayout *mRows;
    QList<Ta_ColorComponentSelector *> mStrips;
    QList<QSpinBox *> mNumbers;
    QList<QLabel *> mLabels;
    QLabel *mOldSwatch;
    QLabel *mNewSwatch;
    QLineEdit *mHex;
};
