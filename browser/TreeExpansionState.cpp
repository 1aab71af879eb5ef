#include "browser/TreeExpansionState_p.h"

#include <QDataStream>
#include <QIODevice>

namespace TavoLib::TreeExpansionState {

QByteArray write(const QMap<QString, bool> &states)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(12);
    stream << quint8(1) << quint32(states.size());
    // Highest key first, as a QMap is written to a stream.
    for (auto it = states.constEnd(); it != states.constBegin();) {
        --it;
        stream << it.key() << it.value();
    }
    return data;
}

bool read(const QByteArray &bytes, QMap<QString, bool> *states)
{
    QDataStream stream(bytes);
    stream.setVersion(12);
    quint8 version = 0;
    stream >> version;
    if (stream.status() != QDataStream::Ok || version != 1)
        return false;
    quint32 count = 0;
    stream >> count;
    QMap<QString, bool> read;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QString name;
        bool expanded = true;
        stream >> name >> expanded;
        // An entry cut short is left out.
        if (stream.status() == QDataStream::Ok)
            read.insert(name, expanded);
    }
    if (stream.status() != QDataStream::Ok && read.isEmpty())
        return false;
    if (states)
        *states = read;
    return true;
}

} // namespace TavoLib::TreeExpansionState
