#pragma once

// The gallery's application style: the platform's style, plus what the library leaves to the
// application's style, such as the icon of the progress stop button.
#include <QProxyStyle>

class GalleryStyle : public QProxyStyle
{
public:
    // The custom pixmap number of the progress stop button.
    static constexpr int StopPixmap = int(0xF0000002u);

    QIcon standardIcon(StandardPixmap pixmap, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
};
