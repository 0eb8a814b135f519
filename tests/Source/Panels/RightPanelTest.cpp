// Right panel: what it shows of the correction sets, and what its clicks ask for.
#include "RightPanel.h"
#include "CorrectionListWidget.h"
#include "CorrectionSetData.h"

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTest>
#include <QTranslator>
#include <QTreeView>
#include <QWheelEvent>

#include <map>

namespace
{

using Metadata = std::map<std::string, double>;

const Metadata AllThree{{"Gain", 12.34}, {"ExposureTime", 10000.4}, {"Temperature", -20}};
const QString NotDefault = QStringLiteral("This Correction Set cannot be set to default");
const QString NotEnabled = QStringLiteral("This Correction Set cannot be enabled");

// Flags: w writable, a available, e empty, d DPC on, r can be restored.
CorrectionSetData* MakeSet(const std::string& name, const std::string& flags, const Metadata& metadata = {})
{
    const auto has = [&flags](char flag) { return flags.find(flag) != std::string::npos; };
    const auto set = boost::make_shared<KTR::DPC::CorrectionSet>(name);
    for (const auto& [key, value] : metadata)
    {
        set->setMetadata(key, value);
    }
    auto* data = new CorrectionSetData(set, has('w'), has('a'), nullptr);
    data->SetIsEmpty(has('e'));
    data->SetIfDpcOn(has('d'));
    data->SetIfRestoreDefSetAvailable(has('r'));
    return data;
}

class RightPanelTest : public testing::Test
{
protected:
    RightPanelTest()
    {
        auto* view = new QTreeView;
        view->setModel(&m_model);
        m_panel = std::make_unique<RightPanel>(view);
        const auto record = [this](auto signal, auto entry)
        { QObject::connect(m_panel.get(), signal, [this, entry](auto... value) { m_log << entry(value...); }); };
        record(&RightPanel::SignalToAddPixels, [] { return QStringLiteral("add"); });
        record(&RightPanel::ReadDefectsSignal, [](const QString& name) { return "read " + name; });
        record(&RightPanel::ChangeDpcStateSignal, [](const QString& name) { return "dpc " + name; });
        record(&RightPanel::EnablePixelEditingSignal, [](bool on) { return QLatin1String(on ? "edit" : "no edit"); });
        record(&RightPanel::SetDefaultCorrectionSetSignal,
               [](const std::string& name) { return "default " + QString::fromStdString(name); });
        m_panel->show();
    }

    void Open(const std::vector<CorrectionSetData*>& sets, const std::string& defaultSet = {})
    {
        m_panel->ResetCorrectionSetList();
        m_log.clear();
        for (CorrectionSetData* set : sets)
        {
            m_panel->GetCorrectionSetList()->append(set);
        }
        m_panel->SetCorrectionSets();
        m_panel->SetDefaultCorrectionSet(defaultSet);
    }

    // A preset, an active user set and two other ones, the last of them empty.
    void OpenUsualCamera()
    {
        Open({MakeSet("Preset", "a"), MakeSet("User", "wadr"), MakeSet("User2", "wa"), MakeSet("User3", "wae")},
             "User2");
        m_log.clear();
    }

    CorrectionListWidget& List(const char* name) const
    {
        return *m_panel->findChild<CorrectionListWidget*>(QLatin1String(name));
    }
    CorrectionListWidget& Preset() const { return List("presetWidget"); }
    CorrectionListWidget& User() const { return List("userWidget"); }
    QString Text(const char* label) const { return m_panel->findChild<QLabel*>(QLatin1String(label))->text(); }
    static QStringList Lines(const CorrectionListWidget& list)
    {
        QStringList lines;
        for (int index = 0; index < list.GetComboBox()->count(); ++index)
        {
            lines << list.GetComboBox()->itemText(index);
        }
        return lines;
    }

    static void Click(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    static void ClickDpc(const CorrectionListWidget& list) { Click(list.GetDpcEnableButton()); }
    static void ClickDefault(const CorrectionListWidget& list) { Click(list.GetDefaultSetButton()); }
    static void Pick(const CorrectionListWidget& list, int index)
    {
        QComboBox* box = list.GetComboBox();
        box->showPopup();
        QAbstractItemView* lines = box->view();
        const QPoint line = lines->visualRect(box->model()->index(index, 0)).center();
        QTest::mouseMove(lines->viewport(), line);
        QTest::mouseClick(lines->viewport(), Qt::LeftButton, {}, line);
        ASSERT_EQ(box->currentIndex(), index);
    }

    // "preset user" as "on" or "off".
    QString Switches() const
    {
        const auto word = [](bool on) { return on ? QStringLiteral("on") : QStringLiteral("off"); };
        return word(Preset().isDpcEnabled()) + QLatin1Char(' ') + word(User().isDpcEnabled());
    }
    QString Defaults() const
    {
        const auto word = [](const CorrectionListWidget& list)
        { return list.GetDefaultSetButton()->isChecked() ? QStringLiteral("checked") : QStringLiteral("plain"); };
        return word(Preset()) + QLatin1Char(' ') + word(User());
    }

    QStandardItemModel m_model{0, 5};
    QStringList m_log;
    std::unique_ptr<RightPanel> m_panel;
};

TEST(CorrectionSetDataTest, EqualIsAnotherSetWithTheSameContent)
{
    struct
    {
        const char* fault;
        const char* flags;
        Metadata metadata;
        const char* otherName;
        const char* otherFlags;
        Metadata otherMetadata;
        bool equal;
    } const cases[] = {
        {"rounds instead of cutting", "wa", {{"Gain", 1.04}}, "B", "wa", {{"Gain", 1.01}}, true},
        {"compares whole numbers", "wa", {{"Gain", 1.09}}, "B", "wa", {{"Gain", 1.11}}, false},
        {"cuts beyond an int", "wa", {{"E", 4e9}}, "B", "wa", {{"E", 5e9}}, false},
        {"takes a set for its own duplicate", "wa", AllThree, "A", "wa", AllThree, false},
        {"ignores empty", "wa", AllThree, "B", "wae", AllThree, false},
        {"ignores available", "wa", AllThree, "B", "w", AllThree, false},
        {"ignores writable", "wa", AllThree, "B", "a", AllThree, false},
        {"compares DPC and restore", "wadr", AllThree, "B", "wa", AllThree, true},
        {"ignores the count", "wa", {{"Gain", 1}}, "B", "wa", {}, false},
        {"takes a missing key for a difference", "wa", {{"Gain", 1}}, "B", "wa", {{"Other", 2}}, true},
    };
    for (const auto& c : cases)
    {
        const std::unique_ptr<CorrectionSetData> set(MakeSet("A", c.flags, c.metadata));
        const std::unique_ptr<CorrectionSetData> other(MakeSet(c.otherName, c.otherFlags, c.otherMetadata));
        EXPECT_EQ(set->IsEqual(*other), c.equal) << c.fault;
    }
}

TEST_F(RightPanelTest, LinesOfTheCombinationBoxes)
{
    Open({MakeSet("First", "wae", AllThree), MakeSet("Full", "wa", AllThree), MakeSet("Plain", "wa"),
          MakeSet("Part", "wa", {{"Gain", 1}, {"ExposureTime", 2}})});
    EXPECT_EQ(Lines(User()), QStringList({QStringLiteral("0. [Empty Set]"),
                                          QString::fromUtf8("1. Gain 12.3, -20.0\xC2\xB0"
                                                            "C, 10000\xC2\xB5"
                                                            "S"),
                                          QStringLiteral("Plain"), QString()}));
}

TEST_F(RightPanelTest, SetsGoToTheirListsAndTheActiveOneIsSelected)
{
    struct
    {
        std::vector<CorrectionSetData*> sets;
        QStringList preset;
        QStringList user;
        QString selected;
        QString active;
        QString switches;
        QStringList log;
    } const cases[] = {
        {{MakeSet("Factory", ""), MakeSet("Preset", "w"), MakeSet("Old", ""), MakeSet("U1", "wa"),
          MakeSet("U2", "wad")},
         {"Old"},
         {"U1", "U2"},
         "U2",
         "U2",
         "off on",
         {"edit", "edit", "read U2"}},
        {{MakeSet("Factory", "ad"), MakeSet("Preset", "a")},
         {"Factory", "Preset"},
         {},
         "Factory",
         "Factory",
         "on off",
         {"no edit", "no edit", "read Factory"}},
        {{MakeSet("U1", "wade")}, {}, {"0. [Empty Set]"}, "U1", "U1", "off on", {"edit", "edit", "read "}},
        {{MakeSet("P", "a"), MakeSet("U1", "wa")}, {"P"}, {"U1"}, "[No Set]", "None", "off off", {}},
    };
    for (const auto& c : cases)
    {
        Open(c.sets);
        EXPECT_EQ(Lines(Preset()), c.preset);
        EXPECT_EQ(Lines(User()), c.user);
        EXPECT_EQ(m_panel->GetCurrentRow(), c.selected);
        EXPECT_EQ(Text("labelPixelListCorrectionSet"), c.selected);
        EXPECT_EQ(Text("activeSetValueLabel"), c.active);
        EXPECT_EQ(Switches(), c.switches);
        EXPECT_EQ(m_log, c.log);
    }
}

TEST_F(RightPanelTest, ButtonsSayWhyTheyCannotBeUsed)
{
    Open({MakeSet("U1", "w"), MakeSet("U2", "wa")}, "U2");
    const auto expectUsable = [](const CorrectionListWidget& list, bool usable)
    {
        EXPECT_EQ(list.GetDefaultSetButton()->isEnabled(), usable);
        EXPECT_EQ(list.GetDpcEnableButton()->isEnabled(), usable);
        EXPECT_EQ(list.GetDefaultSetButton()->toolTip() == NotDefault, !usable);
        EXPECT_EQ(list.GetDpcEnableButton()->toolTip() == NotEnabled, !usable);
    };
    expectUsable(User(), false); // the first set decides
    expectUsable(Preset(), false);
    Pick(User(), 1);
    expectUsable(User(), true);
    EXPECT_EQ(m_panel->ExportToFileButton()->accessibleName(), QStringLiteral("Export")) << "taken from the tool tip";
    EXPECT_EQ(User().GetDpcEnableButton()->toolTip(),
              QStringLiteral("<b>DPC On/Off</b> <br/> <span style='color:gray;'>Switch DPC on or off</span>"));

    Open({MakeSet("P", "a"), MakeSet("U1", "wa")}); // no default set in this family
    EXPECT_FALSE(User().GetDefaultSetButton()->isEnabled());
    EXPECT_EQ(Preset().GetDefaultSetButton()->toolTip(), NotDefault);
    EXPECT_TRUE(Preset().GetDpcEnableButton()->isEnabled());
    EXPECT_EQ(Text("defaultSetValueLabel"), QStringLiteral("Not available"));
}

TEST_F(RightPanelTest, SelectingASetAllowsWhatItAllows)
{
    OpenUsualCamera();
    struct
    {
        const char* list;
        const char* name;
        int index;
        bool writable;
        bool restore;
        QStringList log;
    } const steps[] = {
        {"userWidget", "User2", 1, true, false, {"edit", "read User2"}},
        {"presetWidget", "Preset", 0, false, false, {"no edit", "read Preset"}},
        {"userWidget", "User3", 2, true, false, {"edit", "read "}},
        {"userWidget", "User", 0, true, true, {"edit", "read User"}},
    };
    for (const auto& step : steps)
    {
        m_log.clear();
        Pick(List(step.list), step.index);
        EXPECT_EQ(m_log, step.log);
        EXPECT_EQ(m_panel->GetCurrentRow(), QLatin1String(step.name));
        EXPECT_EQ(Text("labelPixelListCorrectionSet"), QLatin1String(step.name));
        EXPECT_EQ(User().isDpcEnabled(), QLatin1String(step.name) == QLatin1String("User"));
        EXPECT_EQ(m_panel->RestoreDefaultSetButton()->isEnabled(), step.restore) << step.name;
        for (const QPushButton* button :
             {m_panel->UploadToCameraButton(), m_panel->PastePixelListButton(), m_panel->AddPixelButton(),
              m_panel->ClearListButton(), m_panel->AutomaticDetectionButton()})
        {
            EXPECT_EQ(button->isEnabled(), step.writable) << button->objectName().toStdString() << step.name;
        }
        EXPECT_TRUE(m_panel->CopyPixelListButton()->isEnabled() && m_panel->ExportToFileButton()->isEnabled());
    }
    m_log.clear();
    Click(m_panel->AddPixelButton());
    EXPECT_EQ(m_log, QStringList({"add"}));
    m_log.clear();
    QWheelEvent wheel({5, 5}, QPointF(5, 5), {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(User().GetComboBox(), &wheel);
    EXPECT_TRUE(m_log.isEmpty()) << "the wheel reads sets";
}

TEST_F(RightPanelTest, OnlyOneSetIsActive)
{
    OpenUsualCamera();
    const auto expect = [this](const char* active, const char* switches, const char* log)
    {
        EXPECT_EQ(Text("activeSetValueLabel"), QLatin1String(active));
        EXPECT_EQ(Switches(), QLatin1String(switches)) << active;
        EXPECT_EQ(m_log.join(QLatin1Char(',')), QLatin1String(log));
        m_log.clear();
    };
    ClickDpc(Preset());
    expect("Preset", "on off", "dpc Preset");
    EXPECT_EQ(m_panel->GetCurrentRow(), QStringLiteral("Preset"));
    ClickDpc(Preset());
    expect("None", "off off", "dpc Preset");
    Pick(User(), 1);
    m_log.clear();
    ClickDpc(User());
    expect("User2", "off on", "dpc User2");
    Pick(User(), 0);
    expect("User2", "off off", "edit,read User");
    Pick(User(), 1);
    expect("User2", "off on", "edit,read User2");
    User().GetCurrentSet()->SetIfDpcOn(true);
    EXPECT_TRUE(m_panel->DeactivateCurrentDPC());
    expect("None", "off off", "dpc User2");
    EXPECT_FALSE(User().GetCurrentSet()->GetIfDpcOn());
}

TEST_F(RightPanelTest, DefaultSet)
{
    OpenUsualCamera();
    EXPECT_EQ(Defaults(), QStringLiteral("plain checked")); // the list that holds it, whatever it shows
    EXPECT_EQ(Text("defaultSetValueLabel"), QStringLiteral("User2"));

    ClickDefault(Preset());
    EXPECT_EQ(Defaults(), QStringLiteral("checked plain"));
    EXPECT_EQ(m_log, QStringList({"default Preset"}));
    EXPECT_EQ(m_panel->GetCurrentRow(), QStringLiteral("Preset"));
    EXPECT_EQ(Text("defaultSetValueLabel"), QStringLiteral("User2")) << "shown before the camera has confirmed";

    m_log.clear();
    ClickDefault(Preset());
    EXPECT_EQ(Defaults(), QStringLiteral("checked plain"));
    EXPECT_TRUE(m_log.isEmpty());

    m_panel->SetDefaultCorrectionSet("User2"); // the camera refused
    EXPECT_EQ(Defaults(), QStringLiteral("plain checked"));
    m_panel->SetDefaultCorrectionSet("Elsewhere");
    EXPECT_EQ(Defaults(), QStringLiteral("plain plain"));
}

TEST_F(RightPanelTest, WrittenMetadataIsShown)
{
    Open({MakeSet("U0", "wa", {{"Gain", 1}, {"Temperature", 2}}), MakeSet("U1", "wae")});
    const std::unique_ptr<CorrectionSetData> none(MakeSet("x", "wae"));
    const std::unique_ptr<CorrectionSetData> full(MakeSet("x", "wa", AllThree));
    const std::unique_ptr<CorrectionSetData> emptied(MakeSet("x", "wae", AllThree));
    const QString line = QString::fromUtf8("Gain 12.3, -20.0\xC2\xB0"
                                           "C, 10000\xC2\xB5"
                                           "S");
    struct
    {
        const char* name;
        const CorrectionSetData* written;
        QStringList lines;
    } const steps[] = {
        {"U0", none.get(), {"", "1. [Empty Set]"}},
        {"Elsewhere", full.get(), {"", "1. [Empty Set]"}},
        {"U1", full.get(), {"", "1. " + line}},
        {"U0", full.get(), {"0. " + line, "1. " + line}},
        {"U0", emptied.get(), {"0. [Empty Set]", "1. " + line}},
        {"U1", m_panel->GetCorrectionSetList()->at(1), {"0. [Empty Set]", "1. " + line}},
    };
    for (const auto& step : steps)
    {
        m_panel->UpdateSetItemMetadata(QLatin1String(step.name), step.written);
        EXPECT_EQ(Lines(User()), step.lines);
    }
    EXPECT_EQ(m_panel->GetCorrectionSetList()->at(0)->getMetadataSize(), 0u);
}

TEST_F(RightPanelTest, ResetDeletesTheSetsAndForgetsTheCamera)
{
    OpenUsualCamera();
    const QPointer<CorrectionSetData> set(m_panel->GetCorrectionSetList()->first());
    m_panel->ResetCorrectionSetList();
    EXPECT_TRUE(set.isNull());
    EXPECT_TRUE(m_panel->GetCorrectionSetList()->isEmpty() && Lines(User()).isEmpty());
    EXPECT_EQ(User().GetCurrentSet(), nullptr);
    EXPECT_EQ(m_panel->GetCurrentRow(), QStringLiteral("[No Set]"));
    ClickDpc(User());
    ClickDefault(User());
    EXPECT_TRUE(m_log.isEmpty());

    // The next camera has a set of the name that was active in this one.
    Open({MakeSet("User", "wa"), MakeSet("User2", "wad")});
    Pick(User(), 0);
    EXPECT_EQ(Switches(), QStringLiteral("off off"));
    EXPECT_EQ(Defaults(), QStringLiteral("plain plain"));
    EXPECT_EQ(Text("defaultSetValueLabel"), QStringLiteral("Not available"));
}

TEST_F(RightPanelTest, TheCameraMayDisappearWhileASetIsRead)
{
    OpenUsualCamera();
    for (const auto& signal : {&RightPanel::ReadDefectsSignal, &RightPanel::ChangeDpcStateSignal})
    {
        QObject::connect(m_panel.get(), signal, m_panel.get(), &RightPanel::ResetCorrectionSetList);
    }
    User().GetComboBox()->setFocus();
    QTest::keyClick(User().GetComboBox(), Qt::Key_Down);
    EXPECT_EQ(m_log.back(), QStringLiteral("read User2"));
    EXPECT_EQ(m_panel->GetCurrentRow(), QStringLiteral("[No Set]"));
}

TEST_F(RightPanelTest, NumberOfDefects)
{
    EXPECT_EQ(Text("labelNumberOfDefects"), QStringLiteral("# defects"));
    for (const auto& [number, text] : {std::pair(0, "0 defects"), {1, "1 defect"}, {2, "2 defects"}})
    {
        m_panel->OnNumberOfDefectsUpdated(number);
        EXPECT_EQ(Text("labelNumberOfDefects"), QLatin1String(text));
    }
    m_model.clear();
    EXPECT_EQ(Text("labelNumberOfDefects"), QStringLiteral("0 defects"));
}

// Puts every text in angle brackets.
class BracketTranslator : public QTranslator
{
public:
    QString translate(const char*, const char* source, const char*, int) const override
    {
        return QLatin1Char('<') + QString::fromUtf8(source) + QLatin1Char('>');
    }
    bool isEmpty() const override { return false; }
};

TEST_F(RightPanelTest, AnotherLanguageKeepsTheState)
{
    Open({MakeSet("Preset", "ad"), MakeSet("User", "wae")});
    m_panel->SetCameraInfo(QStringLiteral("Model"), {});
    m_panel->OnNumberOfDefectsUpdated(1);
    BracketTranslator translator;
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::processEvents();
    EXPECT_EQ(Text("labelPixelList"), QStringLiteral("<Pixel list>"));
    EXPECT_EQ(m_panel->UploadToCameraButton()->text(), QStringLiteral("<Upload to camera>"));
    EXPECT_EQ(Lines(User()), QStringList({"0. <[Empty Set]>"}));
    EXPECT_EQ(User().GetDefaultSetButton()->toolTip(), QLatin1Char('<') + NotDefault + QLatin1Char('>'));
    EXPECT_EQ(Text("activeSetValueLabel"), QStringLiteral("Preset"));
    EXPECT_EQ(Text("defaultSetValueLabel"), QStringLiteral("<Not available>"));
    EXPECT_EQ(Text("cameraNameLabel"), QStringLiteral("Model"));
    EXPECT_EQ(Text("labelNumberOfDefects"), QStringLiteral("<1 defect>"));
    QCoreApplication::removeTranslator(&translator);
    QCoreApplication::processEvents();
    EXPECT_EQ(Text("labelPixelList"), QStringLiteral("Pixel list"));
}

} // namespace
