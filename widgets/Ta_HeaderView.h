#pragma once

// Ta_HeaderView is the library's header for its lists and tables: section sizes in the
// library's metrics (Device), movable sections, and a state of the sections (their sizes,
// order and hidden flags) that a host keeps in its settings as a QByteArray. Restoring
// checks the whole state before it applies anything: a state of another format, another
// number of sections, an order that is no permutation, or bytes that are no state at all
// change nothing and restoreSections() says false. Sizes are kept to the minimum section size
// and kMaxSectionSize.
#include "style/TavoLibGuiExport.h"

#include <QByteArray>
#include <QHeaderView>

class TAVOLIBGUI_EXPORT Ta_HeaderView : public QHeaderView
{
    Q_OBJECT
public:
    // The largest size a restored section takes, in pixels.
    static constexpr int kMaxSectionSize = 100000;

    explicit Ta_HeaderView(Qt::Orientation orientation, QWidget *parent = nullptr);
    ~Ta_HeaderView() override;

    // The sizes, visual order and hidden flags of the sections, by logical index.
    QByteArray saveSections() const;
    // Applies a state saveSections() gave; true only when it applied it.
    bool restoreSections(const QByteArray &state);
};
