#pragma once

// FontControllerQt connects a font provider to the widgets that pick a font: a family and a
// style combo box, or one menu with a submenu of styles per family. It fills them, selects
// a font identifier in them and reads the choice back as an identifier (-1 for none). It
// holds nothing but the provider and whether to show font examples, so callers make one on
// the spot around a call.
#include "core/FontProviderQt.h"
#include "style/TavoLibGuiExport.h"

class QAction;
class QComboBox;
class QMenu;

namespace TavoLib {

class TAVOLIBGUI_EXPORT FontControllerQt : public virtual MAutoObj
{
public:
    using Ptr = TAutoPtr<FontControllerQt>;

    struct Settings
    {
        // Adds a column with a sample of each face to the combo box lists.
        bool showExamples = false;
    };

    // Takes the user's stored settings.
    explicit FontControllerQt(TAutoPtr<const FontProviderQt> provider);
    FontControllerQt(const FontControllerQt &other);
    FontControllerQt &operator=(const FontControllerQt &other);
    ~FontControllerQt() override;

    // Fills the menu with one entry per family (styles in a submenu when there are several)
    // and checks current. Entries past the screen's height move to a chain of "More"
    // submenus.
    virtual void populateMenu(QMenu *menu, short current) const;
    // The font chosen in the family combo box (a missing font) or else in the style combo
    // box; -1 when neither has one.
    virtual short currentFont(QComboBox *first, QComboBox *second) const;
    // The font an action of populateMenu stands for; -1 for a family with styles.
    virtual short currentFont(QAction *action) const;
    // The checked font of the menu's first level and its style submenus; -1 when none.
    virtual short currentFont(QMenu *menu) const;
    // Selects the font's family and fills the style combo box for it. False when the family
    // is not listed; -1 changes nothing and succeeds.
    virtual bool setCurrentFont(QComboBox *family, QComboBox *style, short font);
    // Checks the font's entry; -1 unchecks everything and 0 stands for the default font.
    virtual void setCurrentFont(QMenu *menu, short font) const;
    // Gives the combo box a fresh family list (a FontTreeView with a FontItemModel) and
    // selects the family of current.
    virtual void populateFamilies(QComboBox *combo, short current, bool omitMissing) const;
    // Fills the style combo box for the family chosen in the family combo box.
    virtual void populateStyles(QComboBox *style, QComboBox *family) const;
    // Fills the combo box with the styles of the font's family and selects the font; does
    // nothing while the combo box already shows that font of this provider's state.
    virtual void populateStyles(QComboBox *combo, short font) const;

    // The user's stored settings, and storing them.
    static Settings loadDefaultSettings();
    static void saveDefaultSettings(const Settings &settings);
    // Takes effect at the next populate call; stores nothing.
    void setShowExamples(bool show);

private:
    void clearMenuItemsCheckedState(QMenu *menu) const;
    bool setMenuItemChecked(QMenu *menu, short font) const;

    TAutoPtr<const FontProviderQt> mProvider;
    Settings mSettings;
};

} // namespace TavoLib
