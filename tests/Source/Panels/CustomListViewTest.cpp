// The camera list under real clicks and keys: what is sent, what is shown, where the badges are.
#include "CustomListView.h"

#include "CamerasList.h"
#include "DpcMarker.h"
#include "LeftPanel.h"
#include "OtherLanguage.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QStyledItemDelegate>
#include <QTest>

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
        list->AddItemToList("name", model, id, "50-0001", interfaceId, dpc, id != "C");
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
    QSignalSpy changes(list, &CamerasList::dataChanged);
    list->ChangeCurrentDpcSupport(0, true);
    EXPECT_EQ(Badges(), "001");
    list->ChangeCurrentDpcSupport(2, false);
    EXPECT_EQ(Badges(), "000") << "it goes whatever the new value is";
    EXPECT_FALSE(list->GetCamerasList().at(2)->dpc);
    EXPECT_EQ(changes.at(0).at(0).toModelIndex().row(), 0);
    EXPECT_EQ(changes.at(0).at(1).toModelIndex().row(), 3);
    list->ClearCurrentList();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(view->findChildren<DpcMarker*>().isEmpty());
    Add("F", true);
    Add("G", false);
    EXPECT_EQ(Badges(), "01");
}

TEST_F(CameraListPanel, Access)
{
    for (const int row : {-1, 3})
    {
        list->ChangeCurrentAccess(row, true);
        list->ChangeCurrentDpcSupport(row, true);
        list->RemoveItemFromList(row);
        EXPECT_FALSE(list->GetCameraCurrentAccess(row));
    }
    EXPECT_FALSE(list->GetCameraCurrentAccess(2));
    list->ChangeCurrentAccess(2, true);
    EXPECT_TRUE(list->GetCameraCurrentAccess(2));
}

TEST_F(CameraListPanel, NothingIsCoveredOrCutOff)
{
    Add("DEV_1AB22C00123456789ABCDEF", false, "if", "A model with a very long name that needs two lines");
    auto language = std::make_unique<OtherLanguage>();
    QTest::qWait(20);
    EXPECT_EQ(panel.RefreshListButton()->text(), OtherLanguage::Of("Refresh list"));
    int bottom = 0;
    for (int row = 0; row < list->rowCount(); ++row)
    {
        SCOPED_TRACE(row);
        const QRect room = view->visualRect(list->index(row));
        EXPECT_GE(room.top(), bottom);
        bottom = room.bottom();
        EXPECT_LE(room.width(), view->viewport()->width());
        QFont bold(view->font());
        bold.setBold(true);
        const int text = QFontMetrics(bold)
                             .boundingRect(QRect(0, 0, room.width() - 40, 1000), Qt::TextWordWrap,
                                           list->index(row).data().toString())
                             .height();
        const QWidget* const badge = Badge(row);
        EXPECT_GE(room.height() - (badge != nullptr ? badge->height() : 0), text);
        if (badge != nullptr)
        {
            const auto* const label = badge->findChild<QLabel*>();
            EXPECT_EQ(label->text(), OtherLanguage::Of("DPC Unsupported"));
            EXPECT_GE(label->width(), label->sizeHint().width());
            EXPECT_TRUE(room.contains(badge->geometry()));
            EXPECT_GE(badge->geometry().top(), room.top() + text);
        }
    }
    language.reset();
    EXPECT_EQ(Badge(1)->findChild<QLabel*>()->text(), "DPC Unsupported");
}

// Laying the whole list out for each row that comes would ask every row for its size each time.
TEST(CameraList, FiveHundredCamerasAreLaidOutOnce)
{
    struct Delegate final : QStyledItemDelegate
    {
        QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
        {
            ++asked;
            return QStyledItemDelegate::sizeHint(option, index);
        }
        mutable int asked = 0;
    } delegate;
    auto* const view = new CustomListView;
    LeftPanel panel(nullptr, view);
    view->setItemDelegate(&delegate);
    panel.show();
    for (int row = 0; row < 500; ++row)
    {
        view->GetCamerasList()->AddItemToList("name", "model", QString::number(row), "7", "if", row % 2 == 0, true);
    }
    QApplication::processEvents();
    EXPECT_LT(delegate.asked, 5000);
    EXPECT_EQ(view->findChildren<DpcMarker*>().size(), 250);
}

} // namespace
