// The pixel list's rows, texts and signals, and its short cuts against a plain list.
#include "TreeModel.h"
#include "ClusterDefect.h"
#include "ColumnDefect.h"
#include "PixelColumnDefect.h"
#include "PixelListXml.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <QColor>
#include <QFile>
#include <QTemporaryDir>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>

using namespace KTR::DPC;

namespace
{

// Writes down every signal of a model in the order in which they come, and how many rows there were at that moment.
class TreeModelTest : public ::testing::Test
{
protected:
    TreeModelTest()
    {
        const auto note = [this](const QString& text)
        { m_log << QStringLiteral("%1/%2").arg(text, QString::number(m_model.rowCount())); };
        const auto range = [note](const char* name)
        {
            return [=](const QModelIndex& parent, int first, int last) {
                note(QStringLiteral("%1 %2 %3 %4").arg(QLatin1String(name)).arg(parent.isValid()).arg(first).arg(last));
            };
        };
        const auto number = [note](const char* name)
        { return [=](int value) { note(QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(value)); }; };
        const auto rectangle = [note](const char* name, const QRect& rect, int value, int row)
        {
            note(QStringLiteral("%1 %2 %3 %4 %5, %6 %7")
                     .arg(QLatin1String(name))
                     .arg(rect.x())
                     .arg(rect.y())
                     .arg(rect.width())
                     .arg(rect.height())
                     .arg(value)
                     .arg(row));
        };
        using Model = TreeModel;
        QObject::connect(&m_model, &Model::rowsAboutToBeInserted, range("inserting"));
        QObject::connect(&m_model, &Model::rowsInserted, range("inserted"));
        QObject::connect(&m_model, &Model::rowsAboutToBeRemoved, range("removing"));
        QObject::connect(&m_model, &Model::rowsRemoved, range("removed"));
        QObject::connect(&m_model, &Model::modelReset, [=] { note(QStringLiteral("reset")); });
        QObject::connect(&m_model, &Model::SendClearingList, [=] { note(QStringLiteral("clear")); });
        QObject::connect(&m_model, &Model::SendIndexToDelete, number("delete"));
        QObject::connect(&m_model, &Model::SendNumberOfDefects, number("count"));
        QObject::connect(&m_model, &Model::SendPointToRect,
                         [=](const QRect& rect, int color) { rectangle("rect", rect, color, -1); });
        QObject::connect(&m_model, &Model::SendNewPixelPoint,
                         [=](QRect& rect, int type, int row) { rectangle("moved", rect, type, row); });
        QObject::connect(&m_model, &Model::startItemEditor,
                         [=](int x, int y, int width, int height, int type) {
                             rectangle("edit", {x, y, width, height}, type, -1);
                         });
    }

    // The signals since the last call.
    QString TakeLog()
    {
        const QString text = m_log.join(QStringLiteral("; "));
        m_log.clear();
        return text;
    }

    void Add(int x, int y, int width = 1, int height = 1, int type = 0, int color = 0)
    {
        m_model.addDefectItem(x, y, width, height, type, color);
    }

    void Click(int row, int column) { m_model.onClicked(m_model.index(row, column)); }

    QString Text(const QModelIndex& index) const { return m_model.data(index).toString(); }

    // x and y of all rows, and the number that each got.
    QString Rows() const
    {
        QStringList rows;
        for (const DefectInfo& info : m_model.getDefectList())
        {
            rows << QStringLiteral("%1 %2 #%3").arg(info.x).arg(info.y).arg(info.number);
        }
        return rows.join(QStringLiteral("; "));
    }

    TreeModel m_model;
    QStringList m_log;
};

TEST_F(TreeModelTest, TellsEveryChangeInItsOrder)
{
    struct Step
    {
        const char* what;
        std::function<void()> act;
        const char* log;
    };
    const Step steps[] = {
        {"nothing at all", [&] { Add(0, 0, 0, 0, 3); }, ""},
        {"the origin", [&] { Add(0, 0); }, "inserting 0 0 1/0; inserted 0 0 1/1; rect 0 0 1 1, 0 -1/1; count 1/1"},
        {"a cluster from the camera", [&] { Add(10, 10, 4, 3, 3, 1); },
         "inserting 0 0 1/1; inserted 0 0 1/2; rect 10 10 4 3, 1 -1/2; count 2/2"},
        {"a taken corner", [&] { Add(10, 10); }, ""},
        {"a pixel inside the cluster", [&] { Add(11, 10); },
         "inserting 0 0 1/2; inserted 0 0 1/3; rect 11 10 1 1, 0 -1/3; count 3/3"},
        {"edit", [&] { Click(1, 3); }, "edit 10 10 4 3, 3 -1/3"},
        {"a second edit", [&] { Click(0, 3); }, ""},
        {"delete during an edit", [&] { Click(0, 4); }, "removing 0 0 0/3; delete 0/2; count 2/2; removed 0 0 0/2"},
        {"add during an edit", [&] { Add(7, 7); },
         "inserting 0 0 1/2; inserted 0 0 1/3; rect 7 7 1 1, 0 -1/3; count 3/3"},
        {"commit", [&] { m_model.onDefectEdited(12, 10, 2, 2, 3); },
         "removing 0 0 0/3; delete 0/2; count 2/2; removed 0 0 0/2; inserting 0 0 1/2; inserted 0 0 1/3; "
         "rect 12 10 2 2, 0 -1/3; count 3/3; moved 12 10 2 2, 3 0/3"},
        {"commit without an edit", [&] { m_model.onDefectEdited(20, 20, 2, 2, 3); }, ""},
        {"disabled", [&] { m_model.EnableEditDeleteButtons(false), Click(0, 3), Click(0, 4); }, ""},
        {"enabled", [&] { m_model.EnableEditDeleteButtons(true), Click(1, 3); }, "edit 7 7 1 1, 0 -1/3"},
        {"edit after cancel", [&] { m_model.cancelEditing(), Click(0, 3); }, "edit 11 10 1 1, 0 -1/3"},
        {"the edited row goes", [&] { Click(0, 4); }, "removing 0 0 0/3; delete 0/2; count 2/2; removed 0 0 0/2"},
        {"its edit is over", [&] { m_model.onDefectEdited(1, 1, 1, 1, 0); }, ""},
        {"no row", [&] { Click(5, 4), m_model.removeDefectItem({}), m_model.removeDefectPixel(900, 900); }, ""},
        {"a free position again", [&] { Add(10, 10); },
         "inserting 0 0 1/2; inserted 0 0 1/3; rect 10 10 1 1, 0 -1/3; count 3/3"},
        {"clear", [&] { m_model.clear(); }, "reset/0; clear/0"},
    };
    for (const Step& step : steps)
    {
        step.act();
        EXPECT_EQ(TakeLog(), QLatin1String(step.log)) << step.what;
    }
    EXPECT_TRUE(m_model.isEmpty());
}

TEST_F(TreeModelTest, ShowsEachDefectWithItsDetails)
{
    EXPECT_FALSE(m_model.hasChildren() || m_model.hasUnsavedDefects() || m_model.data({}).isValid());
    Add(5, 6, 1, 1, 0, 1);
    const char* const names[] = {"Single Pixel", "Pixel Column", "Pixel Row", "Cluster", "Column", "Row", "None"};
    EXPECT_FALSE(m_model.hasUnsavedDefects()) << "it came from the camera";
    for (int type = 0; type < 7; ++type)
    {
        Add(type, 9, 3, 4, type);
        EXPECT_EQ(Text(m_model.index(type + 1, 1)), QLatin1String(names[type]));
    }
    EXPECT_TRUE(m_model.hasUnsavedDefects());
    EXPECT_EQ(m_model.headerData(2, Qt::Horizontal).toString(), QString(6, QLatin1Char(' ')));
    EXPECT_EQ(m_model.headerData(1, Qt::Horizontal).toString(), QString());
    EXPECT_FALSE(m_model.headerData(2, Qt::Vertical).isValid() ||
                 m_model.headerData(2, Qt::Horizontal, Qt::ToolTipRole).isValid());

    m_model.removeDefectItem(m_model.index(1, 0));
    const QModelIndex defect = m_model.index(1, 0);
    EXPECT_EQ(Text(m_model.index(0, 0)) + Text(defect), QStringLiteral("0.1.")) << "the current row, from 0";
    EXPECT_EQ(m_model.getDefectList()[1].number, 2) << "the number stays";
    const QStringList details{QStringLiteral("X1"), QStringLiteral("Y9"), QStringLiteral("Width3"),
                              QStringLiteral("Height4")};
    ASSERT_EQ(m_model.rowCount(defect), 4);
    for (int row = 0; row < 4; ++row)
    {
        const QModelIndex detail = m_model.index(row, 0, defect);
        EXPECT_EQ(Text(detail.siblingAtColumn(1)) + Text(detail.siblingAtColumn(2)), details[row]);
        EXPECT_EQ(detail.parent(), defect);
        EXPECT_FALSE(m_model.hasChildren(detail) || m_model.data(detail, Qt::ForegroundRole).isValid() ||
                     m_model.data(detail.siblingAtColumn(3), Qt::DecorationRole).isValid());
        m_model.onClicked(detail.siblingAtColumn(3));
    }
    EXPECT_FALSE(TakeLog().contains(QLatin1String("edit"))) << "details are not edited";
    EXPECT_EQ(m_model.columnCount(), 5);
    EXPECT_EQ(m_model.columnCount(defect), 4);
    EXPECT_EQ(m_model.columnCount(m_model.index(0, 0, defect)), 3);
    EXPECT_TRUE(m_model.hasChildren(defect.siblingAtColumn(4)));
    EXPECT_EQ(m_model.rowCount(defect.siblingAtColumn(1)), 0);
    EXPECT_EQ(m_model.flags({}), Qt::NoItemFlags);
    EXPECT_EQ(m_model.data(m_model.index(0, 1), Qt::ForegroundRole).value<QColor>(), QColor(37, 171, 37));
    EXPECT_EQ(m_model.data(defect, Qt::ForegroundRole).value<QColor>(), QColor(57, 130, 223));
    EXPECT_FALSE(m_model.data(defect.siblingAtColumn(2), Qt::ForegroundRole).isValid());
}

TEST_F(TreeModelTest, TakesACamerasDefectsWithClustersAsHeadings)
{
    const SensorDefectList defects{
        boost::make_shared<PixelDefect>(1, 2),
        boost::make_shared<ColumnDefect>(3),
        boost::make_shared<PixelColumnDefect>(4, 5, 6),
        boost::make_shared<RowDefect>(7),
        boost::make_shared<PixelRowDefect>(8, 9, 3),
        boost::make_shared<PixelRowDefect>(8, 9, 4),
        boost::make_shared<ClusterDefect>(std::vector<PixelDefect>{{1, 2}, {20, 20}, {21, 20}})};
    m_model.setupModelData(defects, 40, 30);
    QStringList rows;
    for (const DefectInfo& info : m_model.getDefectList())
    {
        rows << QStringLiteral("%1 %2 %3 %4 %5 %6")
                    .arg(info.x)
                    .arg(info.y)
                    .arg(info.width)
                    .arg(info.height)
                    .arg(info.type)
                    .arg(info.color);
    }
    EXPECT_EQ(rows.join(QStringLiteral("; ")), QStringLiteral("1 2 1 1 0 1; 3 0 1 30 4 1; 4 5 1 6 1 1; 0 7 40 1 5 1; "
                                                              "8 9 3 1 2 1; -1 -1 -1 -1 -1 -1"));
    EXPECT_FALSE(m_model.hasUnsavedDefects());
    const QModelIndex heading = m_model.index(5, 0);
    ASSERT_EQ(m_model.rowCount(heading), 2) << "(1, 2) is a pixel of its own already";
    EXPECT_EQ(Text(m_model.index(1, 0, heading)) + Text(m_model.index(1, 1, heading)),
              QStringLiteral("1.Single Pixel"));
    EXPECT_EQ(Text(heading) + Text(heading.siblingAtColumn(1)), QStringLiteral("5."));
    TakeLog();
    Add(20, 20);
    Click(5, 3);
    EXPECT_EQ(TakeLog(), QString()) << "a pixel below a heading holds its position; a heading is not edited";
    Click(5, 4);
    EXPECT_EQ(TakeLog(), QStringLiteral("removing 0 5 5/6; removed 0 5 5/5")) << "a heading has no marker";

    m_model.setupModelData(m_model.getDefectList(), 0, 0);
    EXPECT_EQ(m_model.rowCount(), 5);
    EXPECT_TRUE(m_model.getDefectList()[4].color == 0 && m_model.hasUnsavedDefects()) << "now all are new";
}

TEST_F(TreeModelTest, RemovesTheFirstDefectThatAPixelHits)
{
    struct Case
    {
        const char* hits; // x y pairs
        const char* misses;
        DefectInfo info;
    };
    const Case cases[] = {{"10 10", "11 10|10 11", {10, 10, 1, 1, 0}},
                          {"10 11|10 14", "10 10|10 15|11 11|9 11", {10, 10, 1, 5, 1}},
                          {"11 10|14 10", "10 10|15 10|11 11|11 9", {10, 10, 5, 1, 2}},
                          {"11 11|14 12", "10 11|11 10|15 12|14 13", {10, 10, 5, 3, 3}},
                          {"10 0|10 999", "9 0|11 0", {10, 0, 1, 30, 4}},
                          {"0 10|999 10", "0 9|0 11", {0, 10, 40, 1, 5}},
                          {"", "10 10|11 11", {10, 10, 9, 9, 6}}};
    for (const Case& each : cases)
    {
        for (const char* points : {each.hits, each.misses})
        {
            for (const QString& point : QString::fromLatin1(points).split(QLatin1Char('|'), Qt::SkipEmptyParts))
            {
                m_model.clear();
                Add(each.info.x, each.info.y, each.info.width, each.info.height, each.info.type);
                m_model.removeDefectPixel(point.section(QLatin1Char(' '), 0, 0).toInt(),
                                          point.section(QLatin1Char(' '), 1).toInt());
                EXPECT_EQ(m_model.isEmpty(), points == each.hits) << each.info.type << ": " << point.toStdString();
            }
        }
    }
}

TEST_F(TreeModelTest, KeepsItsOrderThroughManyChanges)
{
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    QVector<QPair<DefectInfo, QPersistentModelIndex>> plain;
    const auto isHit = [](const DefectInfo& info, int x, int y)
    {
        const bool inX = info.type == 3 || info.type == 2 ? x > info.x && x < info.x + info.width : x == info.x;
        const bool inY = info.type == 3 || info.type == 1 ? y > info.y && y < info.y + info.height : y == info.y;
        return (inX || info.type == 5) && (inY || info.type == 4);
    };
    for (int step = 0; step < 6000; ++step)
    {
        const bool isGrowing = step / 1000 % 2 == 0; // long phases, so that the list closes its gaps and opens new ones
        const int x = below(40);
        const int y = below(40);
        if (below(10) < (isGrowing ? 8 : 2))
        {
            const int before = m_model.rowCount();
            Add(x, y, 1 + below(6), 1 + below(6), below(6));
            if (m_model.rowCount() > before)
            {
                plain.append({m_model.getDefectList().last(), m_model.index(before, 0)});
            }
        }
        else if (below(2) == 0)
        {
            const auto hit =
                std::find_if(plain.begin(), plain.end(), [&](const auto& entry) { return isHit(entry.first, x, y); });
            m_model.removeDefectPixel(x, y);
            EXPECT_EQ(m_model.rowCount(), plain.size() - (hit != plain.end() ? 1 : 0));
            if (hit != plain.end())
            {
                EXPECT_FALSE(hit->second.isValid());
                plain.erase(hit);
            }
        }
        else if (!plain.isEmpty())
        {
            const int row = below(plain.size());
            m_model.removeDefectItem(m_model.index(row, 0));
            plain.remove(row);
        }
        if (step % 50 == 0 || plain.size() < 5)
        {
            ASSERT_EQ(m_model.rowCount(), plain.size());
            const QVector<DefectInfo> list = m_model.getDefectList();
            for (int row = 0; row < plain.size(); ++row)
            {
                const DefectInfo& info = plain[row].first;
                ASSERT_TRUE(list[row].x == info.x && list[row].y == info.y && list[row].type == info.type);
                ASSERT_EQ(m_model.index(0, 0, m_model.index(row, 0)).parent().row(), row);
                ASSERT_EQ(plain[row].second.row(), row) << "a persistent index follows its defect";
            }
        }
    }
}

TEST(TreeItem, LetsGoOfARemovedChild)
{
    TreeItem root({QVariant(1), QVariant(2)});
    auto child = std::make_unique<TreeItem>(QVector<QVariant>{}, &root);
    EXPECT_EQ(child->row(), -1);
    root.appendChild(child.get());
    root.appendChild(std::make_unique<TreeItem>(QVector<QVariant>{}, &root).release());
    const std::unique_ptr<TreeItem> stranger = std::make_unique<TreeItem>(QVector<QVariant>{}, &root);
    root.removeChild(stranger.get());
    EXPECT_TRUE(root.childCount() == 2 && root.child(0) == child.get() && root.child(2) == nullptr);
    root.removeChild(child.get());
    EXPECT_TRUE(root.childCount() == 1 && root.child(0)->row() == 0 && root.row() == 0 && child->row() == -1);
    EXPECT_TRUE(root.data(1) == 2 && !root.data(2).isValid() && !root.data(-1).isValid() && !child->isNew());
}

TEST_F(TreeModelTest, LoadsWhatWasSavedAllOrNothing)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("list.xml"));
    Add(3, 3, 1, 1, 0, 1);
    Add(5, 0, 1, 30, 4);
    Add(40, 30, 2, 2, 3);
    Click(1, 4);
    const QString saved = Rows();
    EXPECT_EQ(saved, QStringLiteral("3 3 #0; 40 30 #2"));
    SaveAsXmlImpl(path, m_model.getDefectList());
    TakeLog();
    EXPECT_TRUE(LoadFromXmlImpl(path, &m_model, 40, 30, {0, 3}));
    EXPECT_EQ(Rows(), QStringLiteral("3 3 #0; 40 30 #1"));
    EXPECT_EQ(TakeLog(), QStringLiteral("reset/0; clear/0; inserting 0 0 1/0; inserted 0 0 1/1; rect 3 3 1 1, 0 -1/1; "
                                        "count 1/1; inserting 0 0 1/1; inserted 0 0 1/2; rect 40 30 2 2, 0 -1/2; "
                                        "count 2/2"));
    for (const std::vector<int>& types : {std::vector<int>{0}, {3}, {}})
    {
        Add(1, 1);
        EXPECT_FALSE(LoadFromXmlImpl(path, &m_model, 40, 30, types));
        EXPECT_TRUE(m_model.isEmpty());
    }
}

} // namespace
