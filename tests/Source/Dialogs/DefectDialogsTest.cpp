// Dialogs for entering defects and the conditions of an upload.
#include "AddDialog.h"
#include "EditPixelDialog.h"
#include "FileUploadDialog.h"
#include "MakeCorrectionSet.h"
#include "ModalAnswers.h"
#include "ModalExecution.h"
#include "SentEvents.h"
#include "Widgets.h"

#include <gtest/gtest.h>

#include <QLocale>
#include <QSignalSpy>

#include <array>
#include <tuple>

namespace
{

constexpr int SensorWidth = 100;
constexpr int SensorHeight = 80;
const std::array<const char*, 4> Fields{"lineEditX", "lineEditY", "lineEditWidth", "lineEditHeight"};

// The fields with commas between them, a disabled one in brackets.
std::string State(const QWidget& dialog)
{
    std::string state;
    const char* comma = "";
    for (const char* name : Fields)
    {
        const auto& field = Find<QLineEdit>(dialog, name);
        const std::string text = field.text().toStdString();
        state += comma + (field.isEnabled() ? text : "[" + text + "]");
        comma = ",";
    }
    return state;
}

// A null text leaves the field as it is.
void Enter(const QWidget& dialog, const std::array<const char*, 4>& texts)
{
    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        if (texts[i] != nullptr)
        {
            Find<QLineEdit>(dialog, Fields[i]).setText(QLatin1String(texts[i]));
        }
    }
}

bool SaysInScope(const QWidget& dialog)
{
    const bool canConfirm = Find<QPushButton>(dialog, "confirmButton").isEnabled();
    EXPECT_EQ(Find<QLabel>(dialog, "outOfScopeLabel").text(),
              canConfirm ? QString() : QStringLiteral("Entered values are out of scope!"));
    return canConfirm;
}

TEST(AddDialogTest, EachKindFixesItsFieldsAndSendsThem)
{
    const std::tuple<const char*, const char*, QVariantList> cases[] = {
        {"Single Pixel Defect", ",,[1],[1]", {5, 7, 1, 1, 0, 0}},
        {"Pixel Column Defect", ",,[1],", {5, 7, 1, 4, 1, 0}},
        {"Pixel Row Defect", ",,,[1]", {5, 7, 3, 1, 2, 0}},
        {"Cluster Defect", ",,,", {5, 7, 3, 4, 3, 0}},
        {"Column Defect", ",[0],[1],[80]", {5, 0, 1, 80, 4, 0}},
        {"Row Defect", "[0],,[100],[1]", {0, 7, 100, 1, 5, 0}},
    };
    std::vector<int> kinds{3, 0, 99, 1, 2, 4, 5}; // 99 is no kind
    for (const auto& [text, state, expected] : cases)
    {
        AddDialog dialog(nullptr, SensorWidth, SensorHeight, kinds);
        QSignalSpy sent(&dialog, &AddDialog::SendDataBack);
        dialog.show();
        auto& box = Find<QComboBox>(dialog, "comboBox");
        EXPECT_EQ(box.currentText(), QStringLiteral("Cluster Defect"));
        PickLine(box, box.findText(QLatin1String(text)));
        EXPECT_EQ(State(dialog), state) << text;
        const std::array<const char*, 4> typed{"5a", "-7", "3", "4,"}; // digits are all that a field takes
        for (std::size_t i = 0; i < typed.size(); ++i)
        {
            QTest::keyClicks(&Find<QLineEdit>(dialog, Fields[i]), QLatin1String(typed[i]));
        }
        Click(dialog, "confirmButton");
        ASSERT_EQ(sent.size(), 1) << text;
        EXPECT_EQ(sent.front(), expected) << text;
    }
}

TEST(AddDialogTest, Scope)
{
    const std::tuple<int, std::array<const char*, 4>, bool> cases[] = {
        {3, {"0", "0", "100", "80"}, true},
        {3, {"10", "0", "100", "1"}, false},
        {3, {"0", "1", "1", "80"}, false},
        {3, {"0", "0", "1", "0"}, false},
        {3, {"1", "1", "2147483647", "1"}, false},
        {2, {"0", "0", "", nullptr}, false},
        {0, {"", "", nullptr, nullptr}, true},
        {4, {"99", nullptr, nullptr, nullptr}, true},
        {4, {"100", nullptr, nullptr, nullptr}, false},
    };
    for (const auto& [kind, entered, inScope] : cases)
    {
        AddDialog dialog(nullptr, SensorWidth, SensorHeight, {kind});
        Enter(dialog, entered);
        EXPECT_EQ(SaysInScope(dialog), inScope) << State(dialog);
    }
}

TEST(EditPixelDialogTest, FieldsScopeAndResult)
{
    // What is entered is in place of 10, 20, 3, 4.
    const std::tuple<const char*, std::array<const char*, 4>, const char*, int, bool> cases[] = {
        {"Single Pixel Defect", {}, "10,20,[3],[4]", 0, true},
        {"Pixel Column Defect", {}, "10,20,[3],4", 1, true},
        {"Pixel Row Defect", {}, "10,20,3,[4]", 2, true},
        {"Column Defect", {}, "10,[20],[3],[4]", 4, true},
        {"Row Defect", {}, "[10],20,[3],[4]", 5, true},
        {"", {"97", "76"}, "97,76,3,4", 3, true},
        {"", {"98", nullptr, "1", "1"}, "98,20,1,1", 3, false}, // the width before counts, not the new one
        {"", {nullptr, "77", nullptr, "1"}, "10,77,3,1", 3, false},
        {"", {nullptr, nullptr, "90", "60"}, "10,20,90,60", 3, true},
        {"", {nullptr, nullptr, "91"}, "10,20,91,4", 3, false},
        {"", {nullptr, nullptr, nullptr, "61"}, "10,20,3,61", 3, false},
        {"", {"97", nullptr, "90"}, "97,20,90,4", 3, true}, // the room before counts
        {"", {"-1"}, "-1,20,3,4", 3, false},
        {"", {"2147483647"}, "2147483647,20,3,4", 3, false},
    };
    for (const auto& [text, entered, state, kind, inScope] : cases)
    {
        EditPixelDialog dialog(nullptr, kind, 10, 20, SensorWidth, SensorHeight, 3, 4);
        Enter(dialog, entered);
        const auto& box = Find<QComboBox>(dialog, "comboBox");
        EXPECT_TRUE(box.currentText() == QLatin1String(text) && !box.isEnabled());
        EXPECT_EQ(State(dialog), state);
        EXPECT_EQ(SaysInScope(dialog), inScope) << state;
        Click(dialog, "confirmButton");
        const QRect result = dialog.GetNewPixelPoint();
        const QString values =
            QStringLiteral("%1,%2,%3,%4").arg(result.x()).arg(result.y()).arg(result.width()).arg(result.height());
        EXPECT_EQ(values, inScope ? QString(state).remove('[').remove(']') : QStringLiteral("-1,-1,-1,-1"));
    }
}

TEST(EntryDialogTest, NothingChangesWithoutConfirmation)
{
    for (const char* const way : {"cancelButton", "exitButton", "Escape"})
    {
        EditPixelDialog dialog(nullptr, 0, 10, 20, SensorWidth, SensorHeight, 1, 1);
        AddDialog another(nullptr, SensorWidth, SensorHeight, {0});
        const QSignalSpy sent(&another, &AddDialog::SendDataBack);
        ModalAnswers answers;
        answers.Always([way](QDialog& shown)
                       { *way == 'E' ? QTest::keyClick(&shown, Qt::Key_Escape) : Click(shown, way); });
        EXPECT_EQ(Lorvane::ExecuteModal(dialog) + Lorvane::ExecuteModal(another), 2 * QDialog::Rejected);
        EXPECT_EQ(dialog.GetNewPixelPoint(), QRect(-1, -1, -1, -1));
        EXPECT_TRUE(sent.isEmpty());
    }
}

TEST(EntryDialogTest, IsDraggedByItsHeaderOnly)
{
    AddDialog dialog(nullptr, SensorWidth, SensorHeight, {0});
    dialog.show();
    const QPoint start = dialog.pos();
    for (const auto& [from, by] : {std::pair(QPoint(40, dialog.height() - 4), QPoint(0, 0)), {{40, 10}, {7, 9}}})
    {
        DragMouse(dialog, from, from + QPoint(7, 9));
        EXPECT_EQ(dialog.pos(), start + by);
    }
}

class FileUploadDialogTest : public testing::Test
{
protected:
    CorrectionSetData* Add(const std::string& name, const Metadata& metadata)
    {
        m_owned.push_back(MakeSet(name, "wa", metadata));
        m_sets.append(m_owned.back().get());
        return m_sets.back();
    }

    // As a user does: type over what is there, and go on to the next field.
    static void Type(const QWidget& dialog, const char* name, const char* text)
    {
        auto& field = Find<QLineEdit>(dialog, name);
        field.setFocus();
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, QLatin1String(text));
        QTest::keyClick(&field, Qt::Key_Tab);
    }

    std::vector<std::unique_ptr<CorrectionSetData>> m_owned;
    QList<CorrectionSetData*> m_sets;
};

TEST_F(FileUploadDialogTest, EqualMetadataMeansTheOtherSet)
{
    Add("Other", {{"Gain", 2.0}, {"ExposureTime", 10000}, {"Temperature", 20}});
    CorrectionSetData* set = Add("User", {});
    FileUploadDialog dialog(set, &m_sets, nullptr);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    const int height = dialog.height();
    for (const auto& [field, text, result] :
         {std::tuple("editGain", "3", "User"), {"editGain", "2.04", "Other"}, {"editTemperature", "21", "User"}})
    {
        Type(dialog, field, text);
        const bool isDuplicate = qstrcmp(result, "Other") == 0;
        EXPECT_EQ(dialog.getResultSetName(), QLatin1String(result));
        EXPECT_EQ(dialog.isNewSet(), !isDuplicate);
        EXPECT_EQ(Find<QLabel>(dialog, "labelWarning").isVisible(), isDuplicate);
        ExpectNothingClipped(dialog);
    }
    EXPECT_EQ(dialog.height(), height);
    EXPECT_EQ(set->getAllMetadata(), (Metadata{{"Gain", 2.04}, {"ExposureTime", 10000}, {"Temperature", 21}}));
}

TEST_F(FileUploadDialogTest, WhatIsShownIsWhatIsStored)
{
    const std::tuple<const char*, const char*, double> cases[] = {
        {"1,5", "15", 15}, {"", "0", 0}, {"3e", "0", 0}, {"1e30", "1e+12", 1e12}, {"-2.5", "-2.5", -2.5}};
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    CorrectionSetData* set = Add("User %2", {{"ExposureTime", 1234567.8}});
    FileUploadDialog dialog(set, &m_sets, nullptr);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    EXPECT_EQ(set->getMetadataSize(), 3u) << "what is shown is not in the set";
    EXPECT_EQ(Find<QLineEdit>(dialog, "editExposure").text(), QStringLiteral("1.23457e+06"));
    EXPECT_EQ(Find<QLabel>(dialog, "headerLabel").text(), QStringLiteral("Upload To Camera : User %2"));
    for (const auto& [typed, shown, stored] : cases)
    {
        Type(dialog, "editGain", typed);
        EXPECT_EQ(Find<QLineEdit>(dialog, "editGain").text(), QLatin1String(shown));
        EXPECT_EQ(set->getMetadata("Gain"), stored) << typed;
    }
    QTest::keyClick(&Find<QLineEdit>(dialog, "editGain"), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible()) << "Return neither accepts nor leaves";
    QLocale::setDefault(before);
}

TEST_F(FileUploadDialogTest, MayEndWhileAFieldHasTheFocus)
{
    CorrectionSetData* set = Add("User", {});
    auto dialog = std::make_unique<FileUploadDialog>(set, &m_sets, nullptr);
    dialog->show();
    QApplication::setActiveWindow(dialog.get());
    QTest::keyClicks(&Find<QLineEdit>(*dialog, "editGain"), QStringLiteral("9"));
    dialog.reset();
    EXPECT_EQ(set->getMetadata("Gain"), 0.0);
}

} // namespace
