// The pixel list in a tree view: clicks on its icons, what stays selected and expanded, its icons and its language.
//
// Qt's own tester of item models is of no use here: the model announces every insertion as rows 0 and 1, which it
// rightly takes for a fault.
#include "ClusterDefect.h"
#include "DefectUiType.h"
#include "OtherLanguage.h"
#include "TreeModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
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
    EXPECT_TRUE(m_view.isExpanded(m_model.index(3, 0)));

    QSignalSpy edits(&m_model, &TreeModel::startItemEditor);
    Click(2, TreeModel::EditColumn);
    EXPECT_EQ(edits.takeLast(), (QVariantList{2, 0, 1, 1, 0}));
    Click(1, TreeModel::DeleteColumn);
    EXPECT_TRUE(m_view.isExpanded(m_model.index(2, 0)));
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

TEST_F(PixelListView, FollowsTheLanguage)
{
    using namespace KTR::DPC;
    m_model.setupModelData({boost::make_shared<ClusterDefect>(std::vector<PixelDefect>{{2, 2}})}, 30, 30);
    Fill(1);
    const QModelIndex pixel = m_model.index(0, 0, m_model.index(0, 0));
    const OtherLanguage language;
    for (const auto& [cell, english] : {std::pair(m_model.index(1, 1), "Single Pixel"),
                                        {pixel.siblingAtColumn(1), "Single Pixel"},
                                        {m_model.index(2, 1, pixel), "Width"}})
    {
        EXPECT_EQ(m_model.data(cell).toString(), OtherLanguage::Of(english));
    }
}

} // namespace
