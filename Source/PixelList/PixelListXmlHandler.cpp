// The parser of pixel list files.
#include "PixelListXmlHandler.h"

#include <QXmlDefaultHandler>
#include <QXmlInputSource>
#include <QXmlSimpleReader>

#include <cstddef>
#include <vector>

// Qt's stream reader refuses attribute names that end in a colon, so there is no way around the older classes.
QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace
{

// The parser calls itself for each level: a deeper file would end the program. The format has four levels.
constexpr int MaximumDepth = 500;

// Gathers the elements that count while the parser goes through the file.
class Handler : public QXmlDefaultHandler
{
public:
    bool startElement(const QString& /*namespaceUri*/, const QString& /*localName*/, const QString& name,
                      const QXmlAttributes& attributes) override
    {
        m_open.push_back(NoPixel);
        const bool isRoot = m_open.size() == 1;
        return isRoot || (m_open.size() <= MaximumDepth && TakeElement(name, attributes));
    }

    bool endElement(const QString& /*namespaceUri*/, const QString& /*localName*/, const QString& /*name*/) override
    {
        m_open.pop_back();
        return true;
    }

    std::optional<QVector<DefectInfo>> Result() const
    {
        QVector<DefectInfo> entries;
        entries.reserve(static_cast<int>(m_pixels.size()));
        for (std::size_t i = 0; i < m_pixels.size(); ++i)
        {
            const Pixel& pixel = m_pixels[i];
            if (!pixel.hasCoordinates || !pixel.hasWidth || !pixel.hasHeight || i >= m_types.size() || !m_types[i])
            {
                return std::nullopt;
            }
            entries.append(pixel.info);
            entries.last().type = *m_types[i];
        }
        return entries;
    }

private:
    static constexpr std::size_t NoPixel = static_cast<std::size_t>(-1);

    struct Pixel
    {
        DefectInfo info;
        bool hasCoordinates = false;
        bool hasWidth = false;
        bool hasHeight = false;
    };

    static bool Read(const QXmlAttributes& attributes, const char* name, int& value)
    {
        bool isNumber = false;
        value = attributes.value(QLatin1String(name)).toInt(&isNumber);
        return isNumber;
    }

    // False when a number is missing that an entry needs.
    bool TakeElement(const QString& name, const QXmlAttributes& attributes)
    {
        if (name == QLatin1String("Pixel"))
        {
            m_open.back() = m_pixels.size();
            m_pixels.emplace_back();
            m_pixels.back().info.color = DefectInfo::NewColor;
            int unused = 0;
            return Read(attributes, "LP:", unused);
        }
        if (name == QLatin1String("Type"))
        {
            int type = 0;
            const bool isNumber = Read(attributes, "Type:", type);
            m_types.push_back(isNumber ? std::optional<int>(type) : std::nullopt);
            return true;
        }
        bool isTaken = true;
        for (const std::size_t index : m_open)
        {
            isTaken = isTaken && (index == NoPixel || TakeInto(m_pixels[index], name, attributes));
        }
        return isTaken;
    }

    static bool TakeInto(Pixel& pixel, const QString& name, const QXmlAttributes& attributes)
    {
        if (name == QLatin1String("Coordinates") && !pixel.hasCoordinates)
        {
            pixel.hasCoordinates = true;
            return Read(attributes, "x:", pixel.info.x) && Read(attributes, "y:", pixel.info.y);
        }
        if (name == QLatin1String("Width") && !pixel.hasWidth)
        {
            pixel.hasWidth = true;
            return Read(attributes, "width:", pixel.info.width);
        }
        if (name == QLatin1String("Height") && !pixel.hasHeight)
        {
            pixel.hasHeight = true;
            return Read(attributes, "height:", pixel.info.height);
        }
        return true;
    }

    std::vector<Pixel> m_pixels;
    std::vector<std::optional<int>> m_types;
    std::vector<std::size_t> m_open; // the open elements from the root on: index of the Pixel, or NoPixel
};

} // namespace

std::optional<QVector<DefectInfo>> ParsePixelListXml(QIODevice& device)
{
    QXmlInputSource source(&device);
    Handler handler;
    QXmlSimpleReader reader;
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    reader.setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    reader.setContentHandler(&handler);
    reader.setErrorHandler(&handler);
    if (!reader.parse(source))
    {
        return std::nullopt;
    }
    return handler.Result();
}

QT_WARNING_POP
