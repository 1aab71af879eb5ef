#pragma once

// What the tree browser's private half, delegate and view read of a row's property: the
// string behind it, whether it wraps, the text edit inside an editor, and the key under
// which its expansion is remembered.
#include "browser/ViewProperty.h"
#include "core/StringProperty.h"

#include <QTextEdit>

namespace TavoLib::TreeRows {

// The string behind a row, when the row shows one.
inline TAutoPtr<const StringProperty> stringOf(const QtProperty *property)
{
    const auto *view = dynamic_cast<const ViewProperty *>(property);
    return view ? TAutoPtr<const StringProperty>(view->data()) : TAutoPtr<const StringProperty>();
}

inline bool isMultiLine(const QtProperty *property)
{
    const TAutoPtr<const StringProperty> string = stringOf(property);
    return string && string->multiLine();
}

inline QTextEdit *textEditIn(QWidget *editor)
{
    if (!editor)
        return nullptr;
    if (auto *edit = qobject_cast<QTextEdit *>(editor))
        return edit;
    return editor->findChild<QTextEdit *>();
}

// One line of Latin-1 text: its height is that of the view's font, whatever the text (no
// other font takes part, no second line), so it can change without the row's height.
inline bool isPlainLine(const QString &text)
{
    for (const QChar c : text) {
        if (c.unicode() > 0xff || c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            return false;
    }
    return true;
}

// The key under which a top-level row's expansion is remembered.
inline QString expansionKey(const QtProperty *property)
{
    if (const auto *view = dynamic_cast<const ViewProperty *>(property))
        if (view->data() && !view->data()->uniqueName().isEmpty())
            return view->data()->uniqueName();
    return property->propertyName();
}

} // namespace TavoLib::TreeRows
