#include "hvapi/results/CHVSResultsTabControl.h"

#include "OpenSequences.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include <memory>

namespace {

class ResultsTabControlTest : public OpenSequences
{
protected:
    void SetUp() override
    {
        names.setEditable(true);
        control.setTags("CORVANE_", "CORVANE");
        control.setSettingFileName("XML/CORVANE.txt");
        SequenceRegistry::instance().add(scene("seq"));
    }

    QWidget palette;
    QComboBox names;
    QPushButton deleteButton;
    QPushButton loadButton;
    QPushButton saveButton;
    CHVSResultsTabControl control{&palette, &names, &deleteButton, &loadButton, &saveButton};
};

TEST_F(ResultsTabControlTest, FlagStartsClearAndIsKept)
{
    EXPECT_FALSE(control.getResultModifiedFlag());
    control.setResultModifiedFlag(true);
    EXPECT_TRUE(control.getResultModifiedFlag());
    control.setResultModifiedFlag(false);
    EXPECT_FALSE(control.getResultModifiedFlag());
}

TEST_F(ResultsTabControlTest, UnsavedWorkOffersANewEntryAndTheSaveButton)
{
    control.setResultModifiedFlag(true);
    control.updateSavedResultsForSelSeqId("seq");
    ASSERT_EQ(names.count(), 1);
    EXPECT_EQ(names.itemText(0), "(new)");
    EXPECT_EQ(names.currentText(), "(new)");
    EXPECT_TRUE(saveButton.isEnabled());
    EXPECT_FALSE(loadButton.isEnabled());
    EXPECT_FALSE(deleteButton.isEnabled());
}

TEST_F(ResultsTabControlTest, WithoutUnsavedWorkThereIsNothingToSave)
{
    control.setResultModifiedFlag(true);
    control.updateSavedResultsForSelSeqId("seq");
    control.setResultModifiedFlag(false);
    control.updateSavedResultsForSelSeqId("seq");
    EXPECT_EQ(names.count(), 0);
    EXPECT_EQ(names.currentText(), "<< No Data available >>");
    EXPECT_FALSE(saveButton.isEnabled());
}

TEST_F(ResultsTabControlTest, UnknownSequenceHasNothingEvenWhenModified)
{
    control.setResultModifiedFlag(true);
    for (QString const& id : {QString("other"), QString()}) {
        control.updateSavedResultsForSelSeqId(id);
        EXPECT_EQ(names.count(), 0);
        EXPECT_EQ(names.currentText(), "<< No Data available >>");
        EXPECT_FALSE(saveButton.isEnabled() || loadButton.isEnabled() || deleteButton.isEnabled());
    }
}

TEST_F(ResultsTabControlTest, SequenceIsFoundIgnoringCase)
{
    control.setResultModifiedFlag(true);
    control.updateSavedResultsForSelSeqId("SEQ");
    EXPECT_TRUE(saveButton.isEnabled());
}

TEST_F(ResultsTabControlTest, RefillingIsNoAct)
{
    QSignalSpy index(&names, qOverload<int>(&QComboBox::currentIndexChanged));
    QSignalSpy edited(&names, &QComboBox::editTextChanged);
    control.setResultModifiedFlag(true);
    control.updateSavedResultsForSelSeqId("seq");
    control.setResultModifiedFlag(false);
    control.updateSavedResultsForSelSeqId("seq");
    EXPECT_EQ(index.size(), 0);
    EXPECT_EQ(edited.size(), 0);
}

TEST_F(ResultsTabControlTest, NameBeingTypedSurvivesARefillOfTheSameSequence)
{
    SequenceRegistry::instance().add(scene("other"));
    control.setResultModifiedFlag(true);
    control.updateSavedResultsForSelSeqId("seq");
    names.setEditText("before treatment");
    control.updateSavedResultsForSelSeqId("SEQ");
    EXPECT_EQ(names.currentText(), "before treatment");
    EXPECT_TRUE(saveButton.isEnabled());
    control.updateSavedResultsForSelSeqId("other");
    EXPECT_EQ(names.currentText(), "(new)");
}

TEST_F(ResultsTabControlTest, EmptiedTextGivesWayToTheList)
{
    control.setResultModifiedFlag(true);
    control.updateSavedResultsForSelSeqId("seq");
    names.setEditText("  ");
    control.updateSavedResultsForSelSeqId("seq");
    EXPECT_EQ(names.currentText(), "(new)");
}

TEST_F(ResultsTabControlTest, ButtonsCanBeSetByHand)
{
    control.setStatusOfButtons(true, false, true);
    EXPECT_TRUE(deleteButton.isEnabled());
    EXPECT_FALSE(loadButton.isEnabled());
    EXPECT_TRUE(saveButton.isEnabled());
    control.setStatusOfButtons(false, true, false);
    EXPECT_FALSE(deleteButton.isEnabled());
    EXPECT_TRUE(loadButton.isEnabled());
    EXPECT_FALSE(saveButton.isEnabled());
}

TEST_F(ResultsTabControlTest, NoResultIsSavedYet)
{
    control.setResultModifiedFlag(true);
    control.updateSavedResultsForSelSeqId("seq");
    EXPECT_TRUE(control.getSavedMenuNames().isEmpty());
}

TEST_F(ResultsTabControlTest, WidgetsMayBeMissingOrGo)
{
    CHVSResultsTabControl bare(&palette, nullptr, nullptr, nullptr, nullptr);
    bare.setResultModifiedFlag(true);
    bare.updateSavedResultsForSelSeqId("seq");
    bare.setStatusOfButtons(true, true, true);

    auto combo = std::make_unique<QComboBox>();
    CHVSResultsTabControl widow(&palette, combo.get(), &deleteButton, &loadButton, &saveButton);
    combo.reset();
    widow.setResultModifiedFlag(true);
    widow.updateSavedResultsForSelSeqId("seq");
    EXPECT_TRUE(saveButton.isEnabled());
}

}  // namespace
