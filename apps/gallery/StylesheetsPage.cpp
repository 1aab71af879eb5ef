// Gallery page "Stylesheets": the sample's "Heading 1", which inherits from "Body text",
// edited in a stylesheet panel: what the heading sets itself shows; what it inherits shows
// greyed in the empty fields, and a value typed there sets the whole attribute from the
// inherited values. Beside it, the text that describes the heading's attributes, inherited
// ones included, written anew on every edit.
#include "GalleryPage.h"

#include "attributes/PropertyInfoGenerator.h"
#include "attributes/StylesheetBasedWidgetGroupWidget.h"
#include "attributes/WidgetController.h"
#include "core/FontSizeProperty.h"
#include "core/IntegerProperty.h"
#include "core/UnitValueProperty.h"
#include "sample/SampleAttribute.h"
#include "sample/SampleSchema.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

using namespace TavoLib;

namespace {

const AttributeKey kCharacter(QStringLiteral("Character"));
const AttributeKey kParagraph(QStringLiteral("Paragraph"));

class StylesheetsPage : public QWidget
{
public:
    StylesheetsPage() : mEnvironment(new Environment)
    {
        TAutoPtr<StylesheetManager> stylesheets = Sample::SampleSchema::makeStylesheets();
        mEnvironment->setStylesheetManager(stylesheets);
        Sample::SampleSchema::registerDefaultAttributes(*mEnvironment);
        // The body text indents and hyphenates otherwise than the defaults, so that the
        // heading's greyed fields show what it inherits.
        Stylesheet::Ptr body(new Stylesheet(QStringLiteral("Paragraph"), QStringLiteral("Body"), tr("Body text")));
        TAutoPtr<Attribute> paragraph(Sample::SampleAttribute::create(kParagraph));
        PropertyDictionary bodyValues;
        paragraph->fillProperties(bodyValues);
        if (TAutoPtr<UnitValueProperty> indent{ bodyValues.property(QStringLiteral("leftIndent")) })
            indent->setValue(UnitValue(5, CUnit::MM));
        if (TAutoPtr<GroupProperty> hyphenation{ bodyValues.property(QStringLiteral("hyphenation")) })
            if (TAutoPtr<IntegerProperty> shortest{ hyphenation->property(QStringLiteral("minimumWord")) })
                shortest->setValue(3);
        paragraph->applyProperties(bodyValues);
        body->insertAttribute(paragraph);
        if (TAutoPtr<const Stylesheet> shared = stylesheets->stylesheet(QStringLiteral("Paragraph"), QStringLiteral("Body")))
            for (const auto &entry : shared->attributes(false))
                if (entry.first != kParagraph)
                    body->insertAttribute(entry.second);
        // The heading sets a larger size of its own and inherits the rest.
        mHeading = new Stylesheet(QStringLiteral("Paragraph"), QStringLiteral("Heading"), tr("Heading 1"), body);
        TAutoPtr<Attribute> character(Sample::SampleAttribute::create(kCharacter));
        PropertyDictionary values;
        character->fillProperties(values);
        if (TAutoPtr<FontSizeProperty> size{ values.property(QStringLiteral("size")) })
            size->setValue(UnitValue(18, CUnit::PT));
        character->applyProperties(values);
        mHeading->insertAttribute(character);

        auto *layout = new QHBoxLayout(this);
        auto *left = new QVBoxLayout;
        left->addWidget(new QLabel(tr("Heading 1, based on Body text")));
        auto *group = new StylesheetBasedWidgetGroupWidget(this, tr("Heading 1"), true);
        auto *characterPanel = new StylesheetBasedWidget(nullptr, tr("Character"));
        characterPanel->setAttributeKeys({ kCharacter });
        auto *paragraphPanel = new StylesheetBasedWidget(nullptr, tr("Paragraph"));
        paragraphPanel->setAttributeKeys({ kParagraph });
        for (StylesheetBasedWidget *panel : { characterPanel, paragraphPanel }) {
            panel->setWithGroupBox(true);
            group->addWidget(panel);
        }
        left->addWidget(group, 1);
        layout->addLayout(left, 3);

        auto *right = new QVBoxLayout;
        right->addWidget(new QLabel(tr("Property text")));
        mText = new QPlainTextEdit;
        mText->setReadOnly(true);
        mText->setTabStopDistance(mText->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 3);
        right->addWidget(mText, 1);
        layout->addLayout(right, 2);

        mController = new StylesheetWidgetController(mHeading, mEnvironment);
        mController->setWidget(group);
        mController->loadValues();
        connect(group, &PropertyWidgetGroupWidget::signalPropertyChanged, this, [this] {
            mController->saveValues();
            describe();
        });
        describe();
    }

private:
    void describe()
    {
        PropertyInfoGenerator generator(mEnvironment, Translator::defaultTranslator());
        QString text;
        for (const auto &entry : mHeading->attributes(true)) {
            PropertyDictionary values;
            entry.second->fillProperties(values);
            text += entry.first.name() + QLatin1Char('\n') + generator.generateText(values, QStringLiteral("\t"));
        }
        mText->setPlainText(text);
    }

    TAutoPtr<Environment> mEnvironment;
    Stylesheet::Ptr mHeading;
    TAutoPtr<StylesheetWidgetController> mController;
    QPlainTextEdit *mText = nullptr;
};

QWidget *makeStylesheetsPage()
{
    return new StylesheetsPage;
}

} // namespace

TAVO_GALLERY_PAGE(18, "Stylesheets", makeStylesheetsPage)
