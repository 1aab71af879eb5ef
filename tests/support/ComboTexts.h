#pragma once

// The item texts of a combo box, in row order: what a user would read in its list.
#include <QComboBox>
#include <QStringList>

namespace TavoTest {

inline QStringList comboTexts(const QComboBox &combo)
{
    QStringList result;
    for (int i = 0; i < combo.count(); ++i)
        result << combo.itemText(i);
    return result;
}

} // namespace TavoTest
