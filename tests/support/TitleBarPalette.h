#pragma once
// The title bar's tests share this floating palette: a frameless tool window at (100, 100),
// 240 × 200, with an OmaTitleBar over a text field that Tab leaves; shown, not activated.
#include "widgets/OmaTitleBar.h"

#include <QTextEdit>
#include <QVBoxLayout>
#include <QWidget>

struct TitleBarPalette
{
    QWidget window;
    OmaTitleBar *bar;
    QTextEdit *content;
    TitleBarPalette()
    {
        window.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
        window.setWindowTitle(QStringLiteral("Swatches"));
        auto *layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        bar = new OmaTitleBar;
        content = new QTextEdit;
        content->setTabChangesFocus(true);
        layout->addWidget(bar);
        layout->addWidget(content);
        bar->setContentWidget(content);
        window.setGeometry(100, 100, 240, 200);
        window.show();
    }
};
