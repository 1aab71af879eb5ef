#include "widgets/Ta_HeaderView.h"

#include "style/Device.h"

#include <QDataStream>
#include <QIODevice>
#include <QVector>

using TavoLib::Device;

namespace {

constexpr quint32 kMagic = 0x54614856; // "TaHV"
constexpr quint8 kVersion = 1;

struct Section
{
    qint32 visual = 0;
    qint32 size = 0;
    bool hidden = false;
};

} // namespace

Ta_HeaderView::Ta_HeaderView(Qt::Orientation orientation, QWidget *parent)
    : QHeaderView(orientation, parent)
{
    setSectionsMovable(true);
    setHighlightSections(false);
    setMinimumSectionSize(qRound(Device::scale(24)));
    setDefaultSectionSize(qRound(Device::scale(orientation == Qt::Horizontal ? 100 : 22)));
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

Ta_HeaderView::~Ta_HeaderView() = default;

QByteArray Ta_HeaderView::saveSections() const
{
    QByteArray state;
    QDataStream stream(&state, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_0);
    stream << kMagic << kVersion << qint32(count());
    for (int logical = 0; logical < count(); ++logical)
        stream << qint32(visualIndex(logical)) << qint32(sectionSize(logical))
               << isSectionHidden(logical);
    return state;
}

bool Ta_HeaderView::restoreSections(const QByteArray &state)
{
    QDataStream stream(state);
    stream.setVersion(QDataStream::Qt_5_0);
    quint32 magic = 0;
    quint8 version = 0;
    qint32 saved = -1;
    stream >> magic >> version >> saved;
    if (stream.status() != QDataStream::Ok || magic != kMagic || version != kVersion
        || saved != count())
        return false;
    // Read and check everything first: a state that is wrong anywhere changes nothing.
    QVector<Section> sections(saved);
    QVector<int> logicalAt(saved, -1);
    for (int logical = 0; logical < saved; ++logical) {
        Section &section = sections[logical];
        stream >> section.visual >> section.size >> section.hidden;
        if (stream.status() != QDataStream::Ok || section.visual < 0 || section.visual >= saved
            || logicalAt[section.visual] != -1 || section.size < 0)
            return false;
        logicalAt[section.visual] = logical;
    }
    if (!stream.atEnd())
        return false;
    for (int visual = 0; visual < saved; ++visual) {
        const int logical = logicalAt[visual];
        const int from = visualIndex(logical);
        if (from != visual)
            moveSection(from, visual);
    }
    for (int logical = 0; logical < saved; ++logical) {
        const Section &section = sections[logical];
        setSectionHidden(logical, section.hidden);
        if (!section.hidden)
            resizeSection(logical, qBound(minimumSectionSize(), int(section.size), kMaxSectionSize));
    }
    return true;
}
