// The camera list under real clicks and keys: what is sent, what is shown, where the badges are.
#include "CustomListView.h"

#include "CamerasList.h"
#include "LeftPanel.h"
#include "OtherLanguage.h"
#include "Widgets.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QApplication>

using testing::ElementsAre;

namespace
{

class CameraListPanel : public testing::Test
{
protected:
    CameraListPanel()
    {
        panel.resize(300, 500);
        panel.show();
        Add("A", true);
        Add("B", false);
        Add("C", true);
        QObject::connect(view, &CustomListView::SendCurrentIndex,
                         [this](int row, const QString& id)
                         { sent.push_back(std::to_string(row) + id.toStdString()); });
        QApplication::processEvents();
    }

    void Add(const QString& id, bool dpc, const QString& interfaceId = "if", const QString& model = "OSTREL S-235m")
    {
        list->AddItemToList("name", model, id, "50-0001", interfaceId, dpc, true);
    }
    QWidget* Badge(int row) const { return view->indexWidget(list->index(row)); }
    std::string Badges() const
    {
        std::string badges;
        for (int row = 0; row < list->rowCount(); ++row)
        {
            badges += Badge(row) != nullptr ? '1' : '0';
        }
        return badges;
    }
    void Click(const QPoint& position) const { QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, position); }
    QPoint Middle(int row) const { return view->visualRect(list->index(row)).center(); }

    CustomListView* view = new CustomListView;
    CamerasList* list = view->GetCamerasList();
    LeftPanel panel{nullptr, view};
    QAbstractItemModelTester tester{list};
    std::vector<std::string> sent;
};

TEST_F(CameraListPanel, ClicksAndKeys)
{
    Click(Middle(2));
    Click(Middle(0));
    EXPECT_FALSE(view->selectionModel()->hasSelection());
    view->selectionModel()->select(list->index(1), QItemSelectionModel::Select);
    Click({50, view->viewport()->height() - 5});
    EXPECT_THAT(sent, ElementsAre("2C", "0A")) << "nothing for a click below the rows, also after one on a row";
    EXPECT_FALSE(view->selectionModel()->hasSelection());
    Click(Badge(1)->geometry().center());
    EXPECT_EQ(sent.back(), "1B") << "the badge belongs to its row";
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, Middle(0));
    QTest::mouseMove(view->viewport(), Middle(2));
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, Middle(2));
    EXPECT_FALSE(view->selectionModel()->hasSelection()) << "nor by dragging";
    QTest::keyClick(view, Qt::Key_Down);
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(sent.back(), "1B");
    list->ClearCurrentList();
    sent.clear();
    QObject::connect(view, &CustomListView::SendCurrentIndex, [this] { list->ClearCurrentList(); });
    Add("D", false);
    QApplication::processEvents();
    Click(Middle(0));
    EXPECT_THAT(sent, ElementsAre("0D")) << "a receiver may make the list anew";
}

TEST_F(CameraListPanel, Badges)
{
    EXPECT_EQ(Badges(), "010");
    Add("B", false);
    Add("B", false, "other interface");
    EXPECT_EQ(Badges(), "0101") << "the same camera twice on one interface is one row";
    list->RemoveItemFromList(0);
    EXPECT_EQ(Badges(), "101");
    list->ChangeCurrentDpcSupport(0, true);
    EXPECT_EQ(Badges(), "001");
    list->ChangeCurrentDpcSupport(2, false);
    EXPECT_EQ(Badges(), "000") << "it goes whatever the new value is";
    EXPECT_FALSE(list->GetCamerasList().at(2)->dpc);
}

TEST_F(CameraListPanel, NothingIsCoveredOrCutOff)
{
    Add("DEV_1AB22C00123456789ABCDEF", false, "if", "A model with a very long name that needs two lines");
    ExpectFollowsTheLanguage(panel, "#");
    QFont bold(view->font());
    bold.setBold(true);
    int bottom = 0;
    for (int row = 0; row < list->rowCount(); ++row)
    {
        QRect room = view->visualRect(list->index(row));
        EXPECT_GE(room.top(), std::exchange(bottom, room.bottom()));
        EXPECT_LE(room.width(), view->viewport()->width());
        const QRect text = QFontMetrics(bold).boundingRect(QRect(0, 0, room.width() - 40, 1000), Qt::TextWordWrap,
                                                           list->index(row).data().toString());
        room.setTop(room.top() + text.height());
        EXPECT_TRUE(Badge(row) == nullptr ? room.height() >= 0 : room.contains(Badge(row)->geometry())) << row;
    }
}

} // namespace
