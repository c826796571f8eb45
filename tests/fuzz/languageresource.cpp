#include "fuzz/languageresource.h"

#include "fuzz/require.h"

#include <QResource>
#include <QtEndian>

namespace
{
template <typename Number> void append(QByteArray &octets, Number number)
{
    const Number bigEndian = qToBigEndian(number);
    octets.append(reinterpret_cast<const char *>(&bigEndian), int(sizeof(bigEndian)));
}

/// The hash by which a bundle's names are looked up: four bits a step, folded into 28.
quint32 hashOf(const QString &name)
{
    quint32 hash = 0;
    for (const QChar character : name) {
        hash = (hash << 4) + character.unicode();
        hash ^= (hash & 0xf0000000) >> 23;
        hash &= 0x0fffffff;
    }
    return hash;
}

/// The names of the path in the order of the path, and a tree in which each holds the next.
void appendPath(const QStringList &path, QByteArray &names, QByteArray &tree)
{
    const quint16 folder = 2;
    append(tree, quint32(0));
    append(tree, folder);
    append(tree, quint32(1));
    append(tree, quint32(1));
    for (int i = 0; i < path.size(); ++i) {
        append(tree, quint32(names.size()));
        const bool isFile = i == path.size() - 1;
        append(tree, isFile ? quint16(0) : folder);
        // A folder: how many it holds, and the first of them. A file: language, country, data.
        append(tree, isFile ? (quint32(0) << 16 | 1) : quint32(1));
        append(tree, isFile ? quint32(0) : quint32(i + 2));

        const QString &name = path.at(i);
        append(names, quint16(name.size()));
        append(names, hashOf(name));
        for (const QChar character : name)
            append(names, quint16(character.unicode()));
    }
}

/// What rcc would write in the first version of its format, without compression.
QByteArray bundleOf(const QByteArray &content)
{
    QByteArray names;
    QByteArray tree;
    appendPath({QStringLiteral("i18n"), QStringLiteral("enu"), QStringLiteral("AirlumeLang.txt")},
        names, tree);
    const int headSize = 20;
    QByteArray data;
    append(data, quint32(content.size()));
    data += content;

    QByteArray bundle("qres");
    append(bundle, quint32(1));
    append(bundle, quint32(headSize + data.size() + names.size()));
    append(bundle, quint32(headSize));
    append(bundle, quint32(headSize + data.size()));
    return bundle + data + names + tree;
}
} // namespace

LanguageResource::LanguageResource(const QByteArray &content)
    : m_bundle(bundleOf(content))
{
    require(QResource::registerResource(bytes()));
}

LanguageResource::~LanguageResource()
{
    require(QResource::unregisterResource(bytes()));
}

const uchar *LanguageResource::bytes() const
{
    return reinterpret_cast<const uchar *>(m_bundle.constData());
}
