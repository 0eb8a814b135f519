// The pixel list's rows, texts and signals, and its short cuts against a plain list.
#include "TreeModel.h"
#include "ClusterDefect.h"
#include "ColumnDefect.h"
#include "PixelColumnDefect.h"
#include "PixelRowDefect.h"
#include "RowDefect.h"

#include <QColor>
#include <QDebug>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <random>
#include <tuple>
#include <utility>

using namespace KTR::DPC;

namespace
{

// Writes down every signal of a model in the order in which they come, with its numbers and, after a slash, how many
// rows there were at that moment.
class TreeModelTest : public ::testing::Test
{
protected:
    TreeModelTest()
    {
        using Model = TreeModel;
        const auto note = [this](const char* name) { return [=](auto... numbers) { Note(name, {numbers...}); }; };
        const auto range = [this](const char* name) {
            return [=](const QModelIndex& parent, int first, int last) { Note(name, {parent.row(), first, last}); };
        };
        const auto rect = [this](const char* name) {
            return [=](QRect r, auto... more) { Note(name, {r.x(), r.y(), r.width(), r.height(), more...}); };
        };
        QObject::connect(&m_model, &Model::rowsAboutToBeInserted, range("inserting"));
        QObject::connect(&m_model, &Model::rowsInserted, range("inserted"));
        QObject::connect(&m_model, &Model::rowsAboutToBeRemoved, range("removing"));
        QObject::connect(&m_model, &Model::rowsRemoved, range("removed"));
        QObject::connect(&m_model, &Model::modelReset, [this] { Note("reset", {}); });
        QObject::connect(&m_model, &Model::SendClearingList, note("clear"));
        QObject::connect(&m_model, &Model::SendIndexToDelete, note("delete"));
        QObject::connect(&m_model, &Model::SendNumberOfDefects, note("count"));
        QObject::connect(&m_model, &Model::SendPointToRect, rect("rect"));
        QObject::connect(&m_model, &Model::SendNewPixelPoint, rect("moved"));
        QObject::connect(&m_model, &Model::startItemEditor, note("edit"));
    }

    void Note(const char* name, std::initializer_list<int> numbers)
    {
        m_log += QLatin1String(name);
        for (const int number : numbers)
        {
            m_log += QStringLiteral(" %1").arg(number);
        }
        m_log += QStringLiteral("/%1; ").arg(m_model.rowCount());
    }

    QString TakeLog() { return std::exchange(m_log, QString()); }

    void Add(int x, int y, int width = 1, int height = 1, int type = 0, int color = 0)
    {
        m_model.addDefectItem(x, y, width, height, type, color);
    }

    void Click(int row, int column) { m_model.onClicked(m_model.index(row, column)); }

    QString Text(const QModelIndex& index) const { return m_model.data(index).toString(); }

    // The rows' defects with the numbers that they got.
    QString Rows() const
    {
        QString rows;
        for (const DefectInfo& i : m_model.getDefectList())
        {
            QDebug(&rows).nospace() << i.x << ' ' << i.y << ' ' << i.width << ' ' << i.height << ' ' << i.type << ' '
                                    << i.color << " #" << i.number << "; ";
        }
        return rows;
    }

    TreeModel m_model;
    QString m_log;
};

TEST_F(TreeModelTest, TellsEveryChangeInItsOrder)
{
    const std::tuple<const char*, std::function<void()>, const char*> steps[] = {
        {"nothing at all", [&] { Add(0, 0, 0, 0, 3); }, ""},
        {"the origin", [&] { Add(0, 0); }, "inserting -1 0 1/0; inserted -1 0 1/1; rect 0 0 1 1 0/1; count 1/1; "},
        {"a cluster from the camera", [&] { Add(10, 10, 4, 3, 3, 1); },
         "inserting -1 0 1/1; inserted -1 0 1/2; rect 10 10 4 3 1/2; count 2/2; "},
        {"a taken corner", [&] { Add(10, 10); }, ""},
        {"a pixel inside the cluster", [&] { Add(11, 10); },
         "inserting -1 0 1/2; inserted -1 0 1/3; rect 11 10 1 1 0/3; count 3/3; "},
        {"edit", [&] { Click(1, 3); }, "edit 10 10 4 3 3/3; "},
        {"a second edit", [&] { Click(0, 3); }, ""},
        {"delete during an edit", [&] { Click(0, 4); }, "removing -1 0 0/3; delete 0/2; count 2/2; removed -1 0 0/2; "},
        {"add during an edit", [&] { Add(7, 7); },
         "inserting -1 0 1/2; inserted -1 0 1/3; rect 7 7 1 1 0/3; count 3/3; "},
        {"commit", [&] { m_model.onDefectEdited(12, 10, 2, 2, 3); },
         "removing -1 0 0/3; delete 0/2; count 2/2; removed -1 0 0/2; inserting -1 0 1/2; inserted -1 0 1/3; "
         "rect 12 10 2 2 0/3; count 3/3; moved 12 10 2 2 3 0/3; "},
        {"commit without an edit", [&] { m_model.onDefectEdited(20, 20, 2, 2, 3); }, ""},
        {"disabled", [&] { m_model.EnableEditDeleteButtons(false), Click(0, 3), Click(0, 4); }, ""},
        {"enabled", [&] { m_model.EnableEditDeleteButtons(true), Click(1, 3); }, "edit 7 7 1 1 0/3; "},
        {"edit after cancel", [&] { m_model.cancelEditing(), Click(0, 3); }, "edit 11 10 1 1 0/3; "},
        {"the edited row goes", [&] { Click(0, 4); }, "removing -1 0 0/3; delete 0/2; count 2/2; removed -1 0 0/2; "},
        {"its edit is over", [&] { m_model.onDefectEdited(1, 1, 1, 1, 0); }, ""},
        {"no row", [&] { Click(5, 4), m_model.removeDefectItem({}), m_model.removeDefectPixel(900, 900); }, ""},
        {"a free position again", [&] { Add(10, 10); },
         "inserting -1 0 1/2; inserted -1 0 1/3; rect 10 10 1 1 0/3; count 3/3; "},
        {"clear", [&] { m_model.clear(); }, "reset/0; clear/0; "},
    };
    for (const auto& [what, act, log] : steps)
    {
        act();
        EXPECT_EQ(TakeLog(), QLatin1String(log)) << what;
    }
    EXPECT_TRUE(m_model.isEmpty());
}

TEST_F(TreeModelTest, ShowsEachDefectWithItsDetails)
{
    Add(5, 6, 1, 1, 0, 1);
    EXPECT_FALSE(m_model.hasUnsavedDefects()) << "it came from the camera";
    for (int type = 0; type < 7; ++type)
    {
        const char* const names[] = {"Single Pixel", "Pixel Column", "Pixel Row", "Cluster", "Column", "Row", "None"};
        Add(type, 9, 3, 4, type);
        EXPECT_EQ(Text(m_model.index(type + 1, 1)), QLatin1String(names[type]));
    }
    EXPECT_TRUE(m_model.hasUnsavedDefects());

    m_model.removeDefectItem(m_model.index(1, 0));
    const QModelIndex defect = m_model.index(1, 0);
    EXPECT_EQ(Text(m_model.index(0, 0)) + Text(defect), QStringLiteral("0.1.")) << "the current row, from 0";
    EXPECT_EQ(m_model.getDefectList()[1].number, 2) << "the number stays";
    TakeLog();
    QString details;
    for (int row = 0; row < m_model.rowCount(defect); ++row)
    {
        const QModelIndex detail = m_model.index(row, 0, defect);
        details += Text(detail.siblingAtColumn(1)) + Text(detail.siblingAtColumn(2));
        EXPECT_EQ(detail.parent(), defect);
        m_model.onClicked(detail.siblingAtColumn(3));
    }
    EXPECT_EQ(details, QStringLiteral("X1Y9Width3Height4"));
    EXPECT_EQ(TakeLog(), QString()) << "details are not edited";
    EXPECT_EQ(m_model.data(m_model.index(0, 1), Qt::ForegroundRole), QColor(37, 171, 37));
    EXPECT_EQ(m_model.data(defect, Qt::ForegroundRole), QColor(57, 130, 223));
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
    EXPECT_EQ(Rows(), QStringLiteral("1 2 1 1 0 1 #0; 3 0 1 30 4 1 #1; 4 5 1 6 1 1 #2; 0 7 40 1 5 1 #3; "
                                     "8 9 3 1 2 1 #4; -1 -1 -1 -1 -1 -1 #-1; "));
    const QModelIndex heading = m_model.index(5, 0);
    ASSERT_EQ(m_model.rowCount(heading), 2) << "(1, 2) is a pixel of its own already";
    EXPECT_EQ(Text(m_model.index(1, 0, heading)) + Text(m_model.index(1, 1, heading)),
              QStringLiteral("1.Single Pixel"));
    EXPECT_EQ(Text(heading) + Text(heading.siblingAtColumn(1)), QStringLiteral("5."));
    TakeLog();
    Add(20, 20);
    m_model.removeDefectPixel(20, 20);
    Click(5, 3);
    EXPECT_EQ(TakeLog(), QString()) << "pixels below a heading hold their positions; no click acts on them";
    Click(5, 4);
    EXPECT_EQ(TakeLog(), QStringLiteral("removing -1 5 5/6; removed -1 5 5/5; ")) << "a heading has no marker";
}

TEST_F(TreeModelTest, KeepsOrderAndHitsLikeAPlainList)
{
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto isHit = [](const DefectInfo& info, int x, int y)
    {
        const bool inX = info.type == 3 || info.type == 2 ? x > info.x && x < info.x + info.width : x == info.x;
        const bool inY = info.type == 3 || info.type == 1 ? y > info.y && y < info.y + info.height : y == info.y;
        return info.type < 6 && (inX || info.type == 5) && (inY || info.type == 4);
    };
    QVector<QPair<DefectInfo, QPersistentModelIndex>> plain;
    for (int step = 0; step < 6000; ++step)
    {
        const bool isGrowing = step / 1000 % 2 == 0; // long phases, so that the list closes its gaps and opens new ones
        const int x = below(40);
        const int y = below(40);
        const int before = m_model.rowCount();
        if (below(10) < (isGrowing ? 8 : 2))
        {
            Add(x, y, 1 + below(6), 1 + below(6), below(7));
            if (m_model.rowCount() > before)
            {
                plain.append({m_model.getDefectList().last(), m_model.index(before, 0)});
            }
        }
        else if (below(2) == 0)
        {
            m_model.removeDefectPixel(x, y);
            const auto hit =
                std::find_if(plain.begin(), plain.end(), [&](const auto& entry) { return isHit(entry.first, x, y); });
            plain.erase(hit, hit == plain.end() ? hit : hit + 1);
        }
        else if (before > 0)
        {
            plain.remove(x % before);
            m_model.removeDefectItem(m_model.index(x % before, 0));
        }
        ASSERT_EQ(m_model.rowCount(), plain.size());
        const QVector<DefectInfo> list = m_model.getDefectList();
        for (int row = 0; row < plain.size() && (step % 50 == 0 || plain.size() < 5); ++row)
        {
            const DefectInfo& info = plain[row].first;
            ASSERT_TRUE(list[row].x == info.x && list[row].y == info.y && list[row].type == info.type);
            ASSERT_EQ(m_model.index(0, 0, m_model.index(row, 0)).parent().row(), row);
            ASSERT_EQ(plain[row].second.row(), row) << "a persistent index follows its defect";
        }
    }
}

} // namespace
