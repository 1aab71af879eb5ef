// Page "Document": the sample document's objects, and for the selected one its properties as
// an indented tree of kind, name, value and defined state. The document can be saved to and
// loaded from JSON.
#include "GalleryPage.h"

#include "sample/SampleDocument.h"

#include "core/GroupProperty.h"
#include "core/ListProperty.h"

#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace TavoLib;

namespace {

class DocumentPage : public QWidget
{
public:
    DocumentPage()
    {
        auto *objects = new QListWidget;
        mObjects = objects;
        mTree = new QTreeWidget;
        mTree->setColumnCount(4);
        mTree->setHeaderLabels({ tr("Name"), tr("Kind"), tr("Value"), tr("State") });
        mTree->setAlternatingRowColors(true);
        mTree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

        auto *save = new QPushButton(tr("Save as JSON…"));
        auto *load = new QPushButton(tr("Load JSON…"));
        auto *buttons = new QHBoxLayout;
        buttons->addWidget(new QLabel(tr("Objects of the sample document")));
        buttons->addStretch();
        buttons->addWidget(load);
        buttons->addWidget(save);

        auto *splitter = new QSplitter;
        splitter->addWidget(objects);
        splitter->addWidget(mTree);
        splitter->setStretchFactor(1, 1);
        splitter->setSizes({ 260, 700 });

        auto *layout = new QVBoxLayout(this);
        layout->addLayout(buttons);
        layout->addWidget(splitter);

        connect(objects, &QListWidget::currentRowChanged, this, [this](int row) { showObject(row); });
        connect(save, &QPushButton::clicked, this, [this] { saveDocument(); });
        connect(load, &QPushButton::clicked, this, [this] { loadDocument(); });
        setDocument(Sample::SampleDocument::makeDefault());
    }

private:
    void setDocument(Sample::SampleDocument::Ptr doc)
    {
        mDocument = doc;
        mObjects->clear();
        for (const Sample::SampleObject::Ptr &o : doc->objects())
            mObjects->addItem(QStringLiteral("%1  (%2)").arg(o->name(), o->typeName()));
        mObjects->setCurrentRow(0);
    }

    void showObject(int row)
    {
        mTree->clear();
        if (row < 0 || row >= int(mDocument->objects().size()))
            return;
        const Sample::SampleObject::Ptr object = mDocument->objects()[size_t(row)];
        PropertyDictionary values;
        object->fillProperties(values);
        addProperties(mTree->invisibleRootItem(), values);
        for (const auto &entry : object->attributes()) {
            auto *heading = new QTreeWidgetItem(mTree->invisibleRootItem(),
                                                { tr("%1 attribute").arg(entry.first.name()) });
            QFont bold = heading->font(0);
            bold.setBold(true);
            heading->setFont(0, bold);
            PropertyDictionary attributeValues;
            entry.second->fillProperties(attributeValues);
            addProperties(heading, attributeValues);
        }
        mTree->expandAll();
    }

    void addProperties(QTreeWidgetItem *parent, const PropertyDictionary &properties)
    {
        for (const Property::Ptr &p : properties)
            addProperty(parent, *p, p->visibleName());
    }

    void addProperty(QTreeWidgetItem *parent, const Property &p, const QString &label)
    {
        // The value as the browsers show it: the property's own readable text.
        auto *item = new QTreeWidgetItem(parent, { label, QString::fromLatin1(p.kindName()), p.toString(),
                                                   p.isDefined() ? tr("defined") : tr("undefined") });
        item->setToolTip(0, p.uniqueName());
        if (p.isUndefined())
            item->setForeground(3, QColor(176, 64, 32));
        if (auto *group = dynamic_cast<const GroupProperty *>(&p))
            addProperties(item, *group);
        if (auto *list = dynamic_cast<const ListProperty *>(&p)) {
            int index = 0;
            for (const Property::Ptr &element : *list)
                addProperty(item, *element, tr("Element %1").arg(++index));
        }
    }

    void saveDocument()
    {
        const QString file = QFileDialog::getSaveFileName(this, tr("Save document"), QString(),
                                                          tr("Sample documents (*.json)"));
        if (file.isEmpty())
            return;
        QFile out(file);
        if (!out.open(QIODevice::WriteOnly) || out.write(mDocument->save()) < 0)
            QMessageBox::warning(this, tr("Save document"), tr("Cannot write %1.").arg(file));
    }

    void loadDocument()
    {
        const QString file = QFileDialog::getOpenFileName(this, tr("Load document"), QString(),
                                                          tr("Sample documents (*.json)"));
        if (file.isEmpty())
            return;
        QFile in(file);
        QString error;
        Sample::SampleDocument::Ptr doc;
        if (in.open(QIODevice::ReadOnly))
            doc = Sample::SampleDocument::load(in.readAll(), &error);
        else
            error = in.errorString();
        if (!doc) {
            QMessageBox::warning(this, tr("Load document"), tr("Cannot load %1: %2").arg(file, error));
            return;
        }
        setDocument(doc);
    }

    Sample::SampleDocument::Ptr mDocument;
    QListWidget *mObjects;
    QTreeWidget *mTree;
};

QWidget *makeDocumentPage()
{
    return new DocumentPage;
}

} // namespace

TAVO_GALLERY_PAGE(10, "Document", makeDocumentPage)
