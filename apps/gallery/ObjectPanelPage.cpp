// Gallery page "Object panel": the sample document's objects in a list; the selected one is
// loaded into a property editor panel (scroll area, group box). "Store" writes the edits
// back into the object, "Save JSON" and "Reload" write the document as JSON, read it again
// and load the object anew, so that a stored value can be seen to persist. The list's
// text shows each object's values as the model reads them.
#include "GalleryPage.h"

#include "browser/PropertyEditorWidget.h"
#include "core/Environment.h"
#include "sample/SampleDocument.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace TavoLib;

namespace {

class ObjectPanelPage : public QWidget
{
public:
    ObjectPanelPage()
        : mEnvironment(new Environment)
        , mDocument(Sample::SampleDocument::makeDefault())
    {
        mEnvironment->setStylesheetManager(mDocument->stylesheets());
        auto *layout = new QHBoxLayout(this);
        auto *left = new QVBoxLayout;
        mObjects = new QListWidget;
        mObjects->setMaximumWidth(260);
        left->addWidget(new QLabel(tr("Objects")));
        left->addWidget(mObjects, 1);
        auto *store = new QPushButton(tr("Store"));
        auto *save = new QPushButton(tr("Save JSON and reload"));
        left->addWidget(store);
        left->addWidget(save);
        mStatus = new QLabel;
        mStatus->setWordWrap(true);
        left->addWidget(mStatus);
        layout->addLayout(left);
        mPanel = new PropertyEditorWidget(true, true, false);
        layout->addWidget(mPanel, 1);

        connect(mObjects, &QListWidget::currentRowChanged, this, [this](int row) { show(row); });
        connect(store, &QPushButton::clicked, this, [this] {
            if (auto object = current()) {
                mPanel->storeValues(TAutoPtr<PropertyableObject>(object));
                refreshList();
                mStatus->setText(tr("Stored into %1.").arg(object->name()));
            }
        });
        connect(save, &QPushButton::clicked, this, [this] {
            const QByteArray json = mDocument->save();
            QString error;
            Sample::SampleDocument::Ptr loaded = Sample::SampleDocument::load(json, &error);
            if (!loaded) {
                mStatus->setText(error);
                return;
            }
            const int row = mObjects->currentRow();
            mDocument = loaded;
            refreshList();
            mObjects->setCurrentRow(row);
            show(row);
            mStatus->setText(tr("Saved %1 bytes of JSON and loaded them again.").arg(json.size()));
        });
        connect(mPanel, QOverload<>::of(&PropertyEditorWidget::propertyChanged), this,
            [this] { mStatus->setText(tr("Edited: press Store to write it back.")); });
        refreshList();
        mObjects->setCurrentRow(0);
    }

private:
    Sample::SampleObject::Ptr current() const
    {
        const int row = mObjects->currentRow();
        if (row < 0 || row >= int(mDocument->objects().size()))
            return Sample::SampleObject::Ptr();
        return mDocument->objects()[size_t(row)];
    }

    void show(int)
    {
        if (auto object = current())
            mPanel->loadValues(TAutoPtr<const PropertyableObject>(object), mEnvironment);
    }

    void refreshList()
    {
        const int row = mObjects->currentRow();
        const QSignalBlocker blocker(mObjects);
        mObjects->clear();
        for (const Sample::SampleObject::Ptr &o : mDocument->objects()) {
            PropertyDictionary values;
            o->fillProperties(values);
            QStringList texts;
            for (const auto &p : values)
                texts << p->toString();
            auto *item = new QListWidgetItem(QStringLiteral("%1 (%2)").arg(o->name(), o->typeName()));
            item->setToolTip(texts.join(QStringLiteral("; ")));
            mObjects->addItem(item);
        }
        mObjects->setCurrentRow(row);
    }

    TAutoPtr<Environment> mEnvironment;
    Sample::SampleDocument::Ptr mDocument;
    QListWidget *mObjects = nullptr;
    PropertyEditorWidget *mPanel = nullptr;
    QLabel *mStatus = nullptr;
};

QWidget *makeObjectPanelPage()
{
    return new ObjectPanelPage;
}

} // namespace

TAVO_GALLERY_PAGE(15, "Object panel", makeObjectPanelPage)
