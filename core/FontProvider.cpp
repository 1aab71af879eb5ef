#include "core/FontProvider.h"

#include <QFontDatabase>
#include <algorithm>

namespace TavoLib {

FontProvider::~FontProvider() = default;

QList<FontProvider::BaseWritingSystem> FontProvider::baseWritingSystems(short id) const
{
    QList<BaseWritingSystem> result;
    for (BaseWritingSystem ws : writingSystems(id)) {
        if (ws == QFontDatabase::Vietnamese)
            ws = QFontDatabase::Latin;
        // Any, Symbol and Other are no writing systems a user picks a font by.
        if (ws <= QFontDatabase::Any || ws >= QFontDatabase::WritingSystemsCount
            || ws == QFontDatabase::Symbol || ws == QFontDatabase::Other)
            continue;
        if (!result.contains(ws))
            result.append(ws);
    }
    std::sort(result.begin(), result.end());
    return result;
}

QString FontProvider::sampleText(BaseWritingSystem writingSystem)
{
    switch (writingSystem) {
    case QFontDatabase::Latin:
    case QFontDatabase::Vietnamese:
        return QStringLiteral("AaBbCc Gg");
    case QFontDatabase::Greek:
        return QString::fromUtf8("\u0391\u03b1\u0392\u03b2\u0393\u03b3");
    case QFontDatabase::Cyrillic:
        return QString::fromUtf8("\u0410\u0430\u0411\u0431\u0416\u0436");
    case QFontDatabase::Armenian:
        return QString::fromUtf8("\u0531\u0561\u0532\u0562\u0533\u0563");
    case QFontDatabase::Hebrew:
        return QString::fromUtf8("\u05d0\u05d1\u05d2\u05d3\u05d4");
    case QFontDatabase::Arabic:
        return QString::fromUtf8("\u0623\u0628\u062c\u062f \u0647\u0648\u0632");
    case QFontDatabase::Syriac:
        return QString::fromUtf8("\u0710\u0712\u0713\u0715");
    case QFontDatabase::Thaana:
        return QString::fromUtf8("\u0780\u0781\u0782\u0783");
    case QFontDatabase::Devanagari:
        return QString::fromUtf8("\u0905\u0906\u0907\u0915\u0916");
    case QFontDatabase::Bengali:
        return QString::fromUtf8("\u0985\u0986\u0987\u0995\u0996");
    case QFontDatabase::Gurmukhi:
        return QString::fromUtf8("\u0a05\u0a06\u0a07\u0a15\u0a16");
    case QFontDatabase::Gujarati:
        return QString::fromUtf8("\u0a85\u0a86\u0a87\u0a95\u0a96");
    case QFontDatabase::Oriya:
        return QString::fromUtf8("\u0b05\u0b06\u0b07\u0b15\u0b16");
    case QFontDatabase::Tamil:
        return QString::fromUtf8("\u0b85\u0b86\u0b87\u0b95\u0b99");
    case QFontDatabase::Telugu:
        return QString::fromUtf8("\u0c05\u0c06\u0c07\u0c15\u0c16");
    case QFontDatabase::Kannada:
        return QString::fromUtf8("\u0c85\u0c86\u0c87\u0c95\u0c96");
    case QFontDatabase::Malayalam:
        return QString::fromUtf8("\u0d05\u0d06\u0d07\u0d15\u0d16");
    case QFontDatabase::Sinhala:
        return QString::fromUtf8("\u0d85\u0d86\u0d87\u0d9a\u0d9b");
    case QFontDatabase::Thai:
        return QString::fromUtf8("\u0e01\u0e02\u0e04\u0e07\u0e08");
    case QFontDatabase::Lao:
        return QString::fromUtf8("\u0e81\u0e82\u0e84\u0e87\u0e88");
    case QFontDatabase::Tibetan:
        return QString::fromUtf8("\u0f40\u0f41\u0f42\u0f44");
    case QFontDatabase::Myanmar:
        return QString::fromUtf8("\u1000\u1001\u1002\u1003");
    case QFontDatabase::Georgian:
        return QString::fromUtf8("\u10d0\u10d1\u10d2\u10d3\u10d4");
    case QFontDatabase::Khmer:
        return QString::fromUtf8("\u1780\u1781\u1782\u1783");
    case QFontDatabase::SimplifiedChinese:
        return QString::fromUtf8("\u4e2d\u6587\u5b57\u4f53");
    case QFontDatabase::TraditionalChinese:
        return QString::fromUtf8("\u4e2d\u6587\u5b57\u9ad4");
    case QFontDatabase::Japanese:
        return QString::fromUtf8("\u3042\u3044\u3046\u30a2\u30a4\u6f22\u5b57");
    case QFontDatabase::Korean:
        return QString::fromUtf8("\uac00\ub098\ub2e4\ub77c");
    case QFontDatabase::Ogham:
        return QString::fromUtf8("\u1681\u1682\u1683\u1684");
    case QFontDatabase::Runic:
        return QString::fromUtf8("\u16a0\u16a2\u16a6\u16a8");
    case QFontDatabase::Nko:
        return QString::fromUtf8("\u07ca\u07cb\u07cc\u07cd");
    default:
        return QString();
    }
}

} // namespace TavoLib
