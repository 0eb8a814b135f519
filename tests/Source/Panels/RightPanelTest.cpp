// Right panel: what it shows of the correction sets, and what its clicks ask for.
#include "RightPanel.h"
#include "CorrectionListWidget.h"
#include "MakeCorrectionSet.h"
#include "SentEvents.h"
#include "Widgets.h"

#include <QPointer>
#include <QStandardItemModel>
#include <QTreeView>

namespace
{

const Metadata AllThree{{"Gain", 12.34}, {"ExposureTime", 10000.4}, {"Temperature", -20}};

struct Set
{
    const char *name, *flags;
    Metadata metadata;
};

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

    void Open(const std::vector<Set>& sets, const std::string& defaultSet = {})
    {
        m_panel->ResetCorrectionSetList();
        m_log.clear();
        for (const Set& set : sets)
        {
            m_panel->GetCorrectionSetList()->append(MakeSet(set.name, set.flags, set.metadata).release());
        }
        m_panel->SetCorrectionSets();
        m_panel->SetDefaultCorrectionSet(defaultSet);
    }

    // A preset, an active user set and two other ones, the last of them empty.
    void OpenUsualCamera()
    {
        Open({{"Preset", "a", {}}, {"User", "wadr", {}}, {"User2", "wa", {}}, {"User3", "wae", {}}}, "User2");
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
    static void Pick(const CorrectionListWidget& list, int index) { PickLine(*list.GetComboBox(), index); }

    // "preset user" as "on" or "off".
    QString Switches() const
    {
        return QLatin1String(Preset().isDpcEnabled() ? "on " : "off ") +
               QLatin1String(User().isDpcEnabled() ? "on" : "off");
    }
    QString Defaults() const
    {
        return QLatin1String(Preset().GetDefaultSetButton()->isChecked() ? "checked " : "plain ") +
               QLatin1String(User().GetDefaultSetButton()->isChecked() ? "checked" : "plain");
    }

    QStandardItemModel m_model{0, 5};
    QStringList m_log;
    std::unique_ptr<RightPanel> m_panel;
};

TEST(CorrectionSetDataTest, EqualIsAnotherSetWithTheSameContent)
{
    const std::tuple<const char*, Metadata, const char*, Metadata, bool> cases[] = {
        {"compares exactly", {{"Gain", 1.04}}, "wa", {{"Gain", 1.01}}, true},
        {"compares whole numbers", {{"Gain", 1.09}}, "wa", {{"Gain", 1.11}}, false},
        {"cuts beyond an int", {{"E", 4e9}}, "wa", {{"E", 5e9}}, false},
        {"ignores empty", AllThree, "wae", AllThree, false},
        {"compares DPC and restore", AllThree, "wadr", AllThree, true},
        {"ignores the count", {{"Gain", 1}}, "wa", {}, false},
        {"takes a missing key for a difference", {{"Gain", 1}}, "wa", {{"Other", 2}}, true},
    };
    for (const auto& [fault, metadata, otherFlags, otherMetadata, equal] : cases)
    {
        const auto set = MakeSet("A", "wa", metadata);
        const auto other = MakeSet("B", otherFlags, otherMetadata);
        EXPECT_EQ(set->IsEqual(*other), equal) << fault;
        EXPECT_FALSE(set->IsEqual(*set)) << "no set is its own duplicate";
    }
}

TEST_F(RightPanelTest, SetsGoToTheirListsAndTheActiveOneIsSelected)
{
    // What is shown: preset, user, selected, active, switches.
    const std::tuple<std::vector<Set>, QStringList, QStringList> cases[] = {
        {{{"Factory", "", {}}, {"Preset", "w", {}}, {"Old", "", {}}, {"U1", "wa", {}}, {"U2", "wad", {}}},
         {"Old", "U1,U2", "U2", "U2", "off on"},
         {"edit", "edit", "read U2"}},
        {{{"Factory", "ad", {}}, {"Preset", "a", {}}},
         {"Factory,Preset", "", "Factory", "Factory", "on off"},
         {"no edit", "no edit", "read Factory"}},
        {{{"U1", "wade", {}}}, {"", "0. [Empty Set]", "U1", "U1", "off on"}, {"edit", "edit", "read "}},
        {{{"P", "a", {}}, {"U1", "wa", {{"Gain", 1}, {"Temperature", 2}}}, {"U2", "wa", AllThree}},
         {"P", QString::fromUtf8(",1. Gain 12.3, -20.0\u00B0C, 10000\u00B5S"), "[No Set]", "None", "off off"},
         {}},
    };
    for (const auto& [sets, shown, log] : cases)
    {
        Open(sets);
        EXPECT_EQ(QStringList({Lines(Preset()).join(','), Lines(User()).join(','), Text("labelPixelListCorrectionSet"),
                               Text("activeSetValueLabel"), Switches()}),
                  shown);
        EXPECT_EQ(m_log, log);
    }
}

TEST_F(RightPanelTest, ButtonsSayWhyTheyCannotBeUsed)
{
    Open({{"U1", "w", {}}, {"U2", "wa", {}}}, "U2");
    for (const bool usable : {false, true}) // the first set decides
    {
        for (const QPushButton* button : {User().GetDefaultSetButton(), User().GetDpcEnableButton()})
        {
            EXPECT_EQ(button->isEnabled(), usable);
            EXPECT_EQ(button->toolTip().startsWith("This Correction Set cannot be"), !usable);
        }
        EXPECT_FALSE(Preset().GetDefaultSetButton()->isEnabled() || Preset().GetDpcEnableButton()->isEnabled());
        Pick(User(), 1);
    }
    Open({{"P", "a", {}}, {"U1", "wa", {}}}); // no default set in this family
    EXPECT_FALSE(User().GetDefaultSetButton()->isEnabled());
    EXPECT_TRUE(Preset().GetDpcEnableButton()->isEnabled());
    EXPECT_EQ(Text("defaultSetValueLabel"), QStringLiteral("Not available"));
}

TEST_F(RightPanelTest, SelectingASetAllowsWhatItAllows)
{
    OpenUsualCamera();
    const std::tuple<const char*, QLatin1String, int, bool, bool, QStringList> steps[] = {
        {"userWidget", QLatin1String("User2"), 1, true, false, {"edit", "read User2"}},
        {"presetWidget", QLatin1String("Preset"), 0, false, false, {"no edit", "read Preset"}},
        {"userWidget", QLatin1String("User3"), 2, true, false, {"edit", "read "}},
        {"userWidget", QLatin1String("User"), 0, true, true, {"edit", "read User"}},
    };
    for (const auto& [list, name, index, isWritable, canRestore, log] : steps)
    {
        m_log.clear();
        Pick(List(list), index);
        EXPECT_EQ(m_log, log);
        EXPECT_EQ(m_panel->GetCurrentRow(), name);
        EXPECT_EQ(User().isDpcEnabled(), name == QLatin1String("User"));
        EXPECT_EQ(m_panel->RestoreDefaultSetButton()->isEnabled(), canRestore) << name.data();
        for (const QPushButton* button : {m_panel->UploadToCameraButton(), m_panel->AutomaticDetectionButton()})
        {
            EXPECT_EQ(button->isEnabled(), isWritable) << button->objectName().toStdString() << name.data();
        }
        EXPECT_TRUE(m_panel->ExportToFileButton()->isEnabled());
    }
    m_log.clear();
    Click(m_panel->AddPixelButton());
    EXPECT_EQ(m_log, QStringList({"add"}));
    m_log.clear();
    SendWheel(*User().GetComboBox(), {5, 5}, 120);
    EXPECT_TRUE(m_log.isEmpty()) << "the wheel reads sets";
}

TEST_F(RightPanelTest, OnlyOneSetIsActiveAndOneTheDefault)
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

    EXPECT_EQ(Defaults(), QStringLiteral("plain checked")) << "the list that holds it, whatever it shows";
    ClickDefault(Preset());
    EXPECT_EQ(Defaults(), QStringLiteral("checked plain"));
    EXPECT_EQ(m_log, QStringList({"default Preset"}));
    EXPECT_EQ(m_panel->GetCurrentRow(), QStringLiteral("Preset"));
    EXPECT_EQ(Text("defaultSetValueLabel"), QStringLiteral("User2")) << "shown before the camera has confirmed";
}

TEST_F(RightPanelTest, ResetDeletesTheSetsAndForgetsTheCamera)
{
    OpenUsualCamera();
    const QPointer<CorrectionSetData> set(m_panel->GetCorrectionSetList()->first());
    m_panel->ResetCorrectionSetList();
    EXPECT_TRUE(set.isNull() && Lines(User()).isEmpty() && User().GetCurrentSet() == nullptr);
    EXPECT_EQ(m_panel->GetCurrentRow(), QStringLiteral("[No Set]"));
    // The next camera has a set of the name that was active in this one.
    Open({{"User", "wa", {}}, {"User2", "wad", {}}});
    Pick(User(), 0);
    EXPECT_EQ(Switches(), QStringLiteral("off off"));
    EXPECT_EQ(Defaults(), QStringLiteral("plain plain"));
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

} // namespace
