// Dialogs for entering defects and the conditions of an upload.
#include "AddDialog.h"
#include "CorrectionSetData.h"
#include "EditPixelDialog.h"
#include "FileUploadDialog.h"
#include "ModalAnswers.h"
#include "ModalExecution.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>

#include <array>
#include <map>
#include <memory>

namespace
{

constexpr int SensorWidth = 100;
constexpr int SensorHeight = 80;
const std::array<const char*, 4> Fields{"lineEditX", "lineEditY", "lineEditWidth", "lineEditHeight"};

template <class Widget> Widget& Find(const QWidget& dialog, const char* name)
{
    return *dialog.findChild<Widget*>(QLatin1String(name));
}

void Click(const QWidget& dialog, const char* button)
{
    QTest::mouseClick(&Find<QPushButton>(dialog, button), Qt::LeftButton);
}

// The fields with commas between them, a disabled one in brackets.
template <std::size_t N = 4> std::string State(const QWidget& dialog, const std::array<const char*, N>& fields = Fields)
{
    std::string state;
    const char* comma = "";
    for (const char* name : fields)
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
    struct
    {
        int kind;
        const char* text;
        const char* state;
        std::array<int, 5> sent;
    } const cases[] = {
        {0, "Single Pixel Defect", ",,[1],[1]", {5, 7, 1, 1, 0}},
        {1, "Pixel Column Defect", ",,[1],", {5, 7, 1, 4, 1}},
        {2, "Pixel Row Defect", ",,,[1]", {5, 7, 3, 1, 2}},
        {3, "Cluster Defect", ",,,", {5, 7, 3, 4, 3}},
        {4, "Column Defect", ",[0],[1],[80]", {5, 0, 1, 80, 4}},
        {5, "Row Defect", "[0],,[100],[1]", {0, 7, 100, 1, 5}},
    };
    std::vector<int> kinds{3, 0, 99, 1, 2, 4, 5}; // 99 is no kind
    for (const auto& c : cases)
    {
        AddDialog dialog(nullptr, SensorWidth, SensorHeight, kinds);
        std::vector<std::array<int, 6>> sent;
        QObject::connect(&dialog, &AddDialog::SendDataBack,
                         [&sent](int x, int y, int width, int height, int kind, int origin) {
                             sent.push_back({x, y, width, height, kind, origin});
                         });
        dialog.show();
        auto& box = Find<QComboBox>(dialog, "comboBox");
        EXPECT_EQ(box.currentText(), QStringLiteral("Cluster Defect"));
        box.showPopup();
        const QPoint line = box.view()->visualRect(box.model()->index(box.findText(QLatin1String(c.text)), 0)).center();
        QTest::mouseMove(box.view()->viewport(), line);
        QTest::mouseClick(box.view()->viewport(), Qt::LeftButton, {}, line);
        ASSERT_EQ(box.currentText(), QLatin1String(c.text));
        EXPECT_EQ(State(dialog), c.state);
        const std::array<const char*, 4> typed{"5", "7", "3", "4"};
        for (std::size_t i = 0; i < typed.size(); ++i)
        {
            QTest::keyClicks(&Find<QLineEdit>(dialog, Fields[i]), QLatin1String(typed[i]));
        }
        Click(dialog, "confirmButton");
        EXPECT_FALSE(dialog.isVisible());
        const auto& want = c.sent;
        ASSERT_EQ(sent.size(), 1u) << c.text;
        EXPECT_EQ(sent.front(), (std::array<int, 6>{want[0], want[1], want[2], want[3], want[4], 0})) << c.text;
    }
}

TEST(AddDialogTest, Scope)
{
    struct
    {
        int kind;
        std::array<const char*, 4> entered;
        bool inScope;
    } const cases[] = {
        {3, {"0", "0", "100", "80"}, true},
        {3, {"10", "0", "100", "1"}, false},
        {3, {"0", "1", "1", "80"}, false},
        {3, {"99", "79", "1", "1"}, true},
        {3, {"0", "0", "1", "0"}, false},
        {3, {"-1", "0", "1", "1"}, false},
        {3, {"0", "-1", "1", "1"}, false},
        {3, {"1", "1", "2147483647", "1"}, false},
        {2, {"0", "0", "", nullptr}, false},
        {0, {"100", "0", nullptr, nullptr}, false},
        {0, {"", "", nullptr, nullptr}, true},
        {4, {"99", nullptr, nullptr, nullptr}, true},
        {4, {"100", nullptr, nullptr, nullptr}, false},
        {5, {nullptr, "80", nullptr, nullptr}, false},
    };
    for (const auto& c : cases)
    {
        AddDialog dialog(nullptr, SensorWidth, SensorHeight, {c.kind});
        Enter(dialog, c.entered);
        EXPECT_EQ(SaysInScope(dialog), c.inScope) << State(dialog);
    }
}

TEST(AddDialogTest, ClosesWithoutASignal)
{
    for (const char* button : {"cancelButton", "exitButton", "confirmButton"})
    {
        // Without kinds there is nothing to add, whatever stands in the fields.
        const bool confirms = QLatin1String(button) == QLatin1String("confirmButton");
        AddDialog dialog(nullptr, SensorWidth, SensorHeight, confirms ? std::vector<int>{} : std::vector<int>{0});
        QObject::connect(&dialog, &AddDialog::SendDataBack, [] { ADD_FAILURE() << "a defect was sent"; });
        Enter(dialog, {"1", "1", "1", "1"});
        ModalAnswers answers;
        answers.ThenClick(QLatin1String(button));
        EXPECT_EQ(Lorvane::ExecuteModal(dialog), QDialog::Rejected);
        EXPECT_FALSE(dialog.isVisible());
    }
}

TEST(AddDialogTest, TakesDigitsOnly)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    AddDialog dialog(nullptr, 5000, 5000, {3});
    auto& field = Find<QLineEdit>(dialog, "lineEditX");
    QTest::keyClicks(&field, QStringLiteral("a-1.2,3x4"));
    EXPECT_EQ(field.text(), QStringLiteral("1234"));
    QLocale::setDefault(before);
}

TEST(EditPixelDialogTest, EachKindFixesItsFields)
{
    struct
    {
        int kind;
        const char* text;
        const char* state;
    } const cases[] = {
        {0, "Single Pixel Defect", "10,20,[3],[4]"}, {1, "Pixel Column Defect", "10,20,[3],4"},
        {2, "Pixel Row Defect", "10,20,3,[4]"},      {3, "", "10,20,3,4"},
        {4, "Column Defect", "10,[20],[3],[4]"},     {5, "Row Defect", "[10],20,[3],[4]"},
    };
    for (const auto& c : cases)
    {
        const EditPixelDialog dialog(nullptr, c.kind, 10, 20, SensorWidth, SensorHeight, 3, 4);
        const auto& box = Find<QComboBox>(dialog, "comboBox");
        EXPECT_EQ(box.currentText(), QLatin1String(c.text));
        EXPECT_EQ(box.count(), c.kind == 3 ? 0 : 1);
        EXPECT_FALSE(box.isEnabled());
        EXPECT_EQ(State(dialog), c.state) << c.kind;
        const std::array<std::pair<int, int>, 4> limits{{{0, 99}, {0, 79}, {1, 89}, {1, 59}}};
        for (std::size_t i = 0; i < Fields.size(); ++i)
        {
            const auto* validator = dynamic_cast<const QIntValidator*>(Find<QLineEdit>(dialog, Fields[i]).validator());
            ASSERT_NE(validator, nullptr);
            EXPECT_EQ(std::pair(validator->bottom(), validator->top()), limits[i]) << Fields[i];
        }
    }
}

TEST(EditPixelDialogTest, ScopeAndResult)
{
    struct
    {
        std::array<const char*, 4> entered; // in place of 10, 20, 3, 4
        bool inScope;
    } const cases[] = {
        {{"97", "76", "3", "4"}, true},   {{"98", "20", "1", "1"}, false}, // the width before counts, not the new one
        {{"10", "77", "3", "1"}, false},  {{"10", "20", "90", "60"}, true},        {{"10", "20", "91", "4"}, false},
        {{"10", "20", "3", "61"}, false}, {{"97", "20", "90", "4"}, true}, // the room before counts
        {{"-1", "20", "3", "4"}, false},  {{"2147483647", "20", "3", "4"}, false},
    };
    for (const auto& c : cases)
    {
        EditPixelDialog dialog(nullptr, 3, 10, 20, SensorWidth, SensorHeight, 3, 4);
        Enter(dialog, c.entered);
        EXPECT_EQ(SaysInScope(dialog), c.inScope) << State(dialog);
        Click(dialog, "confirmButton");
        const QRect result = dialog.GetNewPixelPoint();
        const std::string values = std::to_string(result.x()) + "," + std::to_string(result.y()) + "," +
                                   std::to_string(result.width()) + "," + std::to_string(result.height());
        EXPECT_EQ(values, c.inScope ? State(dialog) : "-1,-1,-1,-1");
        EXPECT_EQ(dialog.result(), c.inScope ? QDialog::Accepted : QDialog::Rejected);
    }
}

TEST(EditPixelDialogTest, NothingChangesWithoutConfirmation)
{
    const auto escape = [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); };
    const auto cancel = [](QDialog& dialog) { Click(dialog, "cancelButton"); };
    const auto exit = [](QDialog& dialog) { Click(dialog, "exitButton"); };
    for (const ModalAnswers::Answer& answer : {ModalAnswers::Answer(escape), {cancel}, {exit}})
    {
        EditPixelDialog dialog(nullptr, 0, 10, 20, SensorWidth, SensorHeight, 1, 1);
        ModalAnswers answers;
        answers.Then(answer);
        EXPECT_EQ(Lorvane::ExecuteModal(dialog), QDialog::Rejected);
        EXPECT_EQ(dialog.GetNewPixelPoint(), QRect(-1, -1, -1, -1));
    }
}

TEST(EntryDialogTest, IsDraggedByItsHeaderOnly)
{
    AddDialog dialog(nullptr, SensorWidth, SensorHeight, {0});
    EXPECT_EQ(dialog.windowFlags() & Qt::FramelessWindowHint, Qt::FramelessWindowHint);
    dialog.show();
    const QPoint start = dialog.pos();
    const auto drag = [&dialog](QPoint from, QPoint by)
    {
        QTest::mousePress(&dialog, Qt::LeftButton, {}, from);
        const QPoint to = dialog.mapToGlobal(from) + by;
        QMouseEvent move(QEvent::MouseMove, from + by, to, Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&dialog, &move);
        QTest::mouseRelease(&dialog, Qt::LeftButton, {}, from);
    };
    drag({40, dialog.height() - 4}, {7, 9});
    EXPECT_EQ(dialog.pos(), start);
    drag({40, 10}, {7, 9});
    EXPECT_EQ(dialog.pos(), start + QPoint(7, 9));
}

class FileUploadDialogTest : public testing::Test
{
protected:
    using Metadata = std::map<std::string, double>;

    CorrectionSetData* Add(const std::string& name, const Metadata& metadata)
    {
        const auto set = boost::make_shared<KTR::DPC::CorrectionSet>(name);
        for (const auto& [key, value] : metadata)
        {
            set->setMetadata(key, value);
        }
        m_owned.push_back(std::make_unique<CorrectionSetData>(set, true, true, nullptr));
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

TEST_F(FileUploadDialogTest, FieldsShowTheMetadata)
{
    struct
    {
        Metadata metadata;
        const char* texts;
    } const cases[] = {
        {{}, "0,10000,20"},
        {{{"Gain", 1.5}, {"ExposureTime", 1234567.8}, {"Temperature", -20.125}}, "1.5,1.23457e+06,-20.125"},
        {{{"Temperature", 0}}, "0,10000,0"},
    };
    for (const auto& c : cases)
    {
        CorrectionSetData* set = Add("User %2", c.metadata);
        const FileUploadDialog dialog(set, &m_sets, nullptr);
        EXPECT_EQ(State<3>(dialog, {"editGain", "editExposure", "editTemperature"}), c.texts);
        EXPECT_EQ(Find<QLabel>(dialog, "headerLabel").text(), QStringLiteral("Upload To Camera : User %2"));
        EXPECT_EQ(set->getMetadataSize(), 3u) << "what is shown is not in the set";
    }
}

TEST_F(FileUploadDialogTest, EqualMetadataMeansTheOtherSet)
{
    Add("Other", {{"Gain", 2.0}, {"ExposureTime", 10000}, {"Temperature", 20}});
    CorrectionSetData* set = Add("User", {});
    FileUploadDialog dialog(set, &m_sets, nullptr);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    const auto& warning = Find<QLabel>(dialog, "labelWarning");
    const auto expect = [&](const char* name, bool duplicate)
    {
        EXPECT_EQ(dialog.getResultSetName(), QLatin1String(name));
        EXPECT_EQ(dialog.isNewSet(), !duplicate);
        EXPECT_EQ(warning.isVisible(), duplicate);
        EXPECT_TRUE(Find<QPushButton>(dialog, "buttonOK").isEnabled());
    };
    expect("User", false);
    const int height = dialog.height();
    Type(dialog, "editGain", "2.04");
    expect("Other", true);
    EXPECT_EQ(warning.text(),
              QStringLiteral("WARNING: \nThe current metadata is equal to already existing Set 'Other'.\n"
                             "\"Overwrite\" would remove it and save the Set 'User'."));
    EXPECT_GE(warning.height(), warning.heightForWidth(warning.width())) << "the warning is cut off";
    Type(dialog, "editTemperature", "21");
    expect("User", false);
    EXPECT_EQ(dialog.height(), height);
    EXPECT_EQ(set->getAllMetadata(), (Metadata{{"Gain", 2.04}, {"ExposureTime", 10000}, {"Temperature", 21}}));
}

TEST_F(FileUploadDialogTest, WhatIsShownIsWhatIsStored)
{
    struct
    {
        const char* typed;
        const char* shown;
        double stored;
    } const cases[] = {
        {"1,5", "15", 15}, {"", "0", 0}, {"-", "0", 0}, {"3e", "0", 0}, {"1e30", "1e+12", 1e12}, {"-2.5", "-2.5", -2.5},
    };
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    CorrectionSetData* set = Add("User", {});
    FileUploadDialog dialog(set, &m_sets, nullptr);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    for (const auto& c : cases)
    {
        Type(dialog, "editGain", c.typed);
        EXPECT_EQ(Find<QLineEdit>(dialog, "editGain").text(), QLatin1String(c.shown));
        EXPECT_EQ(set->getMetadata("Gain"), c.stored) << c.typed;
    }
    QLocale::setDefault(before);
}

TEST_F(FileUploadDialogTest, OnlyItsButtonAccepts)
{
    const auto enter = [](QDialog& dialog) { QTest::keyClick(&Find<QLineEdit>(dialog, "editGain"), Qt::Key_Return); };
    const auto exit = [](QDialog& dialog) { Click(dialog, "exitButton"); };
    const auto overwrite = [](QDialog& dialog) { Click(dialog, "buttonOK"); };
    CorrectionSetData* set = Add("User", {});
    for (const auto& [answer, result] : {std::pair(ModalAnswers::Answer(enter), 0), {exit, 0}, {overwrite, 1}})
    {
        FileUploadDialog dialog(set, &m_sets, nullptr);
        ModalAnswers answers;
        answers.Then(answer);
        EXPECT_EQ(Lorvane::ExecuteModal(dialog), result);
    }
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
