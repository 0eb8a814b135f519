// Pixel list files to the byte, what they are refused for, and the way to the camera's records and back.
#include "ClusterDefect.h"
#include "PixelColumnDefect.h"
#include "PixelListXml.h"
#include "SensorDefectConversion.h"
#include "WorkingFolder.h"

#include <boost/make_shared.hpp>

using namespace KTR::DPC;

bool operator==(const DefectInfo& a, const DefectInfo& b)
{
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height && a.type == b.type &&
           a.color == b.color && a.number == b.number;
}

namespace
{

constexpr int SensorWidth = 40;
constexpr int SensorHeight = 30;
const std::vector<int> AllTypes{0, 1, 2, 3, 4, 5};

const char* const OnePixel = R"(
<Camera>
 <Pixel LP:="8">
  <Type Type:="0"/>
  <Data>
   <Coordinates x:="10" y:="20"/>
   <Width width:="1"/>
   <Height height:="1"/>
  </Data>
 </Pixel>
</Camera>)";

class PixelListXml : public ::testing::Test, protected WorkingFolder
{
protected:
    static std::optional<QVector<DefectInfo>> ReadBytes(const QByteArray& bytes,
                                                        const std::vector<int>& types = AllTypes)
    {
        WriteFile("list.xml", bytes);
        return ReadXmlPixelList("list.xml", SensorWidth, SensorHeight, types);
    }
};

TEST_F(PixelListXml, SavesTheLayoutToTheByteAndOnlyWhatIsThere)
{
    SaveAsXmlImpl("list.xml", {});
    EXPECT_FALSE(QFile::exists("list.xml"));
    SaveAsXmlImpl("absent/list.xml", {{1, 2, 1, 1, 0, 0, 0}});
    SaveAsXmlImpl("list.xml", {{10, 20, 1, 1, 0, 0, 7}});
    EXPECT_EQ(ReadFile("list.xml"), QByteArray(OnePixel));
}

TEST_F(PixelListXml, AcceptsAndRefusesByTheValues)
{
    // "what stands in the file > what replaces it"
    const QByteArray accepted = "x:='10'>x:='40'|y:='20'>y:='30'|width:='1'>width:='40'|height:='1'>height:='30'|"
                                "LP:='8'>LP:='-5'|Type:='0'>Type:='5'|Camera>Anything";
    const QByteArray refused =
        "x:='10'>x:='41'|x:='10'>x:='-1'|x:='10'>x:='0x1'|x:='10'>x:='4294967297'|x:='10'>x='10'|"
        "y:='20'>y:='31'|width:='1'>width:='41'|height:='1'>height:='0'|LP:='8'>LP:=''|LP:='8'>lp='8'|"
        "Type:='0'>Type:='6'|Type:='0'>Type:='-1'|Type:='0'>Type:='3'|Pixel>pixel|Width>Breadth|"
        "Height>Altitude|Coordinates>Place|Type >Kind |</Camera>";
    for (const QByteArray& changes : {accepted, refused})
    {
        for (const QByteArray& change : changes.split('|'))
        {
            const int middle = change.indexOf('>');
            const QByteArray bytes =
                QByteArray(OnePixel).replace('"', '\'').replace(change.left(middle), change.mid(middle + 1));
            EXPECT_EQ(ReadBytes(bytes, {0, 1, 2, 4, 5}).has_value(), changes == accepted) << change.data();
        }
    }
    EXPECT_FALSE(ReadXmlPixelList("absent.xml", 9, 9, AllTypes));
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("<Camera/>"), QByteArray(OnePixel) + OnePixel, QByteArray("<a>").repeated(1000000)})
    {
        EXPECT_FALSE(ReadBytes(bytes));
    }
}

TEST_F(PixelListXml, PairsTypesByTheirIndexInTheFile)
{
    const QByteArray pixel = "<Pixel LP:='1'><Type Type:='%1'/><Data><Coordinates x:='%2' y:='0'/><Width width:='1'/>"
                             "<Height height:='1'/></Data></Pixel>";
    const auto entry = [&](int type, int x)
    { return QByteArray(pixel).replace("%1", QByteArray::number(type)).replace("%2", QByteArray::number(x)); };
    const auto list = ReadBytes("<r><Type Type:='4'/><b>" + entry(1, 5) + "</b>" + entry(2, 5) + entry(9, 6) + "</r>");
    ASSERT_TRUE(list);
    EXPECT_EQ(*list, (QVector<DefectInfo>{{5, 0, 1, 1, 4, 0, 0}, {6, 0, 1, 1, 2, 0, 1}}))
        << "a taken position is dropped";
    EXPECT_FALSE(ReadBytes("<r>" + entry(1, 5) + entry(1, 6).replace("<Type Type:='1'/>", "") + "</r>"));
    const auto nested = ReadBytes("<r>" + entry(0, 7).replace("<Data>", entry(1, 8) + "<Data>") + "</r>");
    ASSERT_TRUE(nested);
    EXPECT_EQ(*nested, (QVector<DefectInfo>{{8, 0, 1, 1, 0, 0, 0}})) << "the first coordinates below, at any depth";
}

TEST(SensorDefectConversion, GroupsByTheCamerasKindsAndReadsBack)
{
    const QVector<DefectInfo> list{
        {1, 2, 1, 1, 0, 0, 0},  {3, 4, 1, 5, 1, 0, 1},  {6, 7, 8, 1, 2, 0, 2},  {9, 9, 2, 2, 3, 0, 3},
        {4, 0, 1, 30, 4, 0, 4}, {0, 5, 40, 1, 5, 0, 5}, {11, 2, 1, 1, 0, 0, 6}, DefectInfo()};
    using Type = SensorDefectType;
    SensorDefectList defects = SetNewSensorDefects(
        {Type::PixelRow, Type::Cluster, Type::Pixel, Type::Row, Type::Column, Type::PixelColumn}, list);
    const boost::shared_ptr<SensorDefect> pixelColumn = boost::make_shared<PixelColumnDefect>(3, 4, 5);
    EXPECT_TRUE(*defects.back() == *pixelColumn);
    EXPECT_TRUE(SetNewSensorDefects({Type::Cluster, Type::Pixel}, {list[3], list[1]}).empty());
    defects.push_back(boost::make_shared<ClusterDefect>(std::vector<PixelDefect>{{1, 2}, {2, 2}}));
    EXPECT_EQ(ToDefectInfos(defects, SensorWidth, SensorHeight), (QVector<DefectInfo>{{6, 7, 8, 1, 2, 1, 0},
                                                                                      {1, 2, 1, 1, 0, 1, 1},
                                                                                      {11, 2, 1, 1, 0, 1, 2},
                                                                                      {0, 5, 40, 1, 5, 1, 3},
                                                                                      {4, 0, 1, 30, 4, 1, 4},
                                                                                      {3, 4, 1, 5, 1, 1, 5},
                                                                                      {1, 2, 1, 1, 0, 1, 6},
                                                                                      {2, 2, 1, 1, 0, 1, 7}}));
}

} // namespace
