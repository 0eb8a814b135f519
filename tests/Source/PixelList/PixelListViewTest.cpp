// The pixel list in a tree view: clicks on its icons, what stays selected and expanded, its icons and its language.
//
// Qt's own tester of item models is of no use here: the model announces every insertion as rows 0 and 1, which it
// rightly takes for a fault.
#include "ClusterDefect.h"
#include "DefectUiType.h"
#include "TreeModel.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>
#include <QTreeView>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace
{

class PixelListView : public ::testing::Test
{
protected:
    PixelListView()
    {
        m_view.setModel(&m_model);
        m_view.setUniformRowHeights(true);
        m_view.header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        m_view.resize(400, 600);
        QObject::connect(&m_view, &QTreeView::clicked, &m_model, &TreeModel::onClicked);
        m_view.show();
    }

    void Fill(int count)
    {
        for (int i = 0; i < count; ++i)
        {
            m_model.addDefectItem(i % 1000, i / 1000, 1, 1, DefectUiType::SinglePixel, DefectInfo::NewColor);
        }
        QCoreApplication::processEvents();
    }

    void Click(int row, int column)
    {
        const QRect cell = m_view.visualRect(m_model.index(row, column));
        QTest::mouseClick(m_view.viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    }

    int ExpandedRow() const
    {
        for (int row = 0; row < m_model.rowCount(); ++row)
        {
            if (m_view.isExpanded(m_model.index(row, 0)))
            {
                return row;
            }
        }
        return -1;
    }

    QWidget m_window;
    TreeModel m_model{&m_window};
    QTreeView m_view;
};

TEST_F(PixelListView, IconsActOnTheClickedRowAndTheRestStays)
{
    Fill(4);
    m_view.setExpanded(m_model.index(3, 0), true);
    m_view.setCurrentIndex(m_model.index(3, 1));
    Fill(5);
    EXPECT_EQ(m_view.currentIndex().row(), 3) << "an insertion at the end moves nothing";
    EXPECT_EQ(ExpandedRow(), 3);

    QSignalSpy edits(&m_model, &TreeModel::startItemEditor);
    Click(2, TreeModel::EditColumn);
    Click(1, TreeModel::EditColumn);
    ASSERT_EQ(edits.size(), 1);
    EXPECT_EQ(edits[0], (QVariantList{2, 0, 1, 1, 0}));
    EXPECT_EQ(ExpandedRow(), 3);
    m_model.cancelEditing();

    QSignalSpy deletions(&m_model, &TreeModel::SendIndexToDelete);
    Click(1, TreeModel::DeleteColumn);
    Click(2, 1);
    ASSERT_EQ(deletions.size(), 1);
    EXPECT_EQ(ExpandedRow(), 2);
    EXPECT_EQ(m_model.data(m_view.currentIndex()), m_model.data(m_model.index(2, 1)));
    m_model.EnableEditDeleteButtons(false);
    Click(0, TreeModel::DeleteColumn);
    EXPECT_EQ(m_model.rowCount(), 4);
    m_model.EnableEditDeleteButtons(true);
    while (!m_model.isEmpty())
    {
        Click(m_model.rowCount() - 1, TreeModel::DeleteColumn);
    }
    EXPECT_EQ(deletions.size(), 5);
}

TEST_F(PixelListView, SurvivesAnyOrderOfChanges)
{
    using namespace KTR::DPC;
    std::mt19937 random(11);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const SensorDefectList fromCamera{boost::make_shared<PixelDefect>(1, 1),
                                      boost::make_shared<ClusterDefect>(std::vector<PixelDefect>{{2, 2}, {3, 3}}),
                                      boost::make_shared<PixelDefect>(4, 4)};
    QTreeView second;
    second.setModel(&m_model);
    second.setSelectionMode(QTreeView::ExtendedSelection);
    second.show();
    for (int step = 0; step < 1500; ++step)
    {
        const QModelIndex row = m_model.index(below(m_model.rowCount() + 1), below(5));
        const QModelIndex inside = m_model.index(below(4), below(4), row.siblingAtColumn(0));
        const std::function<void()> actions[] = {
            [&] { m_model.addDefectItem(below(30), below(30), 1 + below(5), 1 + below(5), below(7), below(2)); },
            [&] { m_model.addDefectItem(below(30), below(30), 1, 1, 0, 0); },
            [&] { m_model.removeDefectItem(row); },
            [&] { m_model.removeDefectPixel(below(30), below(30)); },
            [&] { m_view.setExpanded(row.siblingAtColumn(0), below(3) > 0); },
            [&] { m_view.setCurrentIndex(inside); },
            [&] { second.setCurrentIndex(row), second.expandAll(); },
            [&] { m_model.onClicked(inside); },
            [&] { m_model.onDefectEdited(below(30), below(30), 1, 1, 0); },
            [&] { m_model.removeDefectItem(inside); },
            [&] { QCoreApplication::processEvents(); },
            [&] { m_model.SetStrings(); },
            [&] { below(15) == 0 ? m_model.clear() : second.selectAll(); },
            [&] { below(15) == 0 ? m_model.setupModelData(fromCamera, 30, 30) : second.scrollToBottom(); },
        };
        actions[below(static_cast<int>(std::size(actions)))]();
        ASSERT_EQ(m_model.getDefectList().size(), m_model.rowCount());
    }
}

TEST_F(PixelListView, LongListsStayQuick)
{
    QElapsedTimer timer;
    timer.start();
    Fill(100000);
    m_view.scrollToBottom();
    QCoreApplication::processEvents();
    for (int i = 0; i < 50000; ++i)
    {
        m_model.removeDefectPixel(99999 % 1000 - i % 1000, 99 - i / 1000);
        m_model.removeDefectItem(m_model.index(m_model.rowCount() / 2, 0));
    }
    QCoreApplication::processEvents();
    EXPECT_LT(m_model.rowCount(), 50000);
    EXPECT_LT(timer.elapsed(), 20000) << "far beyond what a busy machine explains";
}

TEST_F(PixelListView, IconsAreBuiltOnceAndLookTheSameWhenDisabled)
{
    Fill(2);
    const auto icon = [&](int row, int column)
    { return m_model.data(m_model.index(row, column), Qt::DecorationRole).value<QIcon>(); };
    EXPECT_EQ(icon(0, 3).cacheKey(), icon(1, 3).cacheKey());
    EXPECT_NE(icon(0, 3).cacheKey(), icon(0, 4).cacheKey());
    EXPECT_TRUE(icon(0, 2).isNull());
    for (const int column : {3, 4})
    {
        const QImage normal = icon(0, column).pixmap(16, 16).toImage();
        ASSERT_FALSE(normal.isNull());
        for (const QIcon::State state : {QIcon::Off, QIcon::On})
        {
            EXPECT_EQ(icon(0, column).pixmap(QSize(16, 16), QIcon::Disabled, state).toImage(), normal);
        }
        EXPECT_EQ(icon(0, column).availableSizes().size(), 2) << "one for screens of double density";
    }
}

class ShoutingTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return qstrcmp(context, "TreeModel") == 0 ? QString::fromLatin1(text).toUpper() : QString();
    }
};

TEST_F(PixelListView, FollowsTheLanguage)
{
    m_model.setupModelData(KTR::DPC::SensorDefectList{boost::make_shared<KTR::DPC::ClusterDefect>(
                               std::vector<KTR::DPC::PixelDefect>{{2, 2}})},
                           30, 30);
    Fill(1);
    const QModelIndex pixel = m_model.index(0, 0, m_model.index(0, 0));
    const auto texts = [&]
    {
        return m_model.data(m_model.index(1, 1)).toString() + m_model.data(pixel.siblingAtColumn(1)).toString() +
               m_model.data(m_model.index(2, 1, pixel)).toString() +
               m_model.data(m_model.index(0, 2, pixel)).toString();
    };
    const QString english = texts();
    EXPECT_EQ(english, QStringLiteral("Single PixelSingle PixelWidth2"));
    ShoutingTranslator translator;
    m_window.show();
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::processEvents();
    EXPECT_EQ(texts(), english.toUpper());
    m_model.addDefectItem(9, 9, 1, 1, DefectUiType::Row, DefectInfo::NewColor);
    EXPECT_EQ(m_model.data(m_model.index(2, 1)).toString(), QStringLiteral("ROW"));
    QCoreApplication::removeTranslator(&translator);
    QCoreApplication::processEvents();
    EXPECT_EQ(texts(), english);
}

} // namespace
