#pragma once

// A label of a progress section that shortens its text with "..." to the width it is given,
// while text() stays the full text.
#include "style/TavoLibGuiExport.h"

#include <QLabel>

class TAVOLIBGUI_EXPORT ProgressLabel : public QLabel
{
    Q_OBJECT
public:
    explicit ProgressLabel(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    // Changes the text for this paint only: no repaint is asked for.
    void swapText(const QString &text);

    int mLastWidth = 0;
    QString mFullText;
    QString mElidedText;
};
