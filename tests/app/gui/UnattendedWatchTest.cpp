#include "app/UnattendedWatch.h"
#include "app/PressScript.h"

#include "testing/TestHostServices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

/// A dialog as a reader might show it: some fields settled, some asked for.
class ValuesDialog : public QDialog
{
public:
    ValuesDialog()
    {
        setWindowTitle(QStringLiteral("Volume Information"));
        auto* form = new QFormLayout(this);
        auto* row = new QDoubleSpinBox;
        auto* column = new QDoubleSpinBox;
        auto* spacing = new QHBoxLayout;
        for (QWidget* part :
             std::initializer_list<QWidget*>{new QLabel("Pixel Spacing (Row, Column): ("), row,
                                             new QLabel(", "), column, new QLabel(") mm")})
            spacing->addWidget(part);
        form->addRow(spacing);
        form->addRow("&Width:", new QSpinBox);
        auto* settled = new QSpinBox;
        settled->setEnabled(false);
        form->addRow("Height:", settled);
        auto* hidden = new QSpinBox;
        form->addRow("Offset:", hidden);
        hidden->hide();
        form->addRow("Data Type:", new QComboBox);
        form->addRow(new QCheckBox("Si&gned"));
        form->addRow("Resolution:", new QSlider(Qt::Horizontal));
        auto* shown = new QLineEdit;
        shown->setReadOnly(true);
        form->addRow("Path:", shown);
        form->addRow(new QPushButton("OK"));
    }
};

TEST(UnattendedWatch, ListsEnabledLabelledFieldsFromTopToBottom)
{
    ValuesDialog dialog;
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    EXPECT_EQ(fillableFields(dialog),
              (QStringList{"Pixel Spacing (Row, Column)", "Width", "Data Type", "Signed"}));
}

TEST(UnattendedWatch, AnAccessibleNameServesWhereThereIsNoLabel)
{
    QWidget window;
    auto* layout = new QHBoxLayout(&window);
    auto* edit = new QLineEdit;
    edit->setAccessibleName("Subject");
    layout->addWidget(edit);
    layout->addWidget(new QSpinBox);  // nobody can say what it is
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(fillableFields(window), QStringList{"Subject"});
}

TEST(UnattendedWatch, ClosesADialogAndSaysWhatItWanted)
{
    TestHostServices host;
    const UnattendedWatch watch;
    EXPECT_FALSE(watch.wasAsked());
    EXPECT_EQ(watch.demand(), QString());
    ValuesDialog dialog;
    EXPECT_EQ(dialog.exec(), static_cast<int>(QDialog::Rejected));
    EXPECT_TRUE(watch.wasAsked());
    EXPECT_EQ(watch.demand(), QString("\"Volume Information\" asks for values that only you have: "
                                      "Pixel Spacing (Row, Column), Width, Data Type, Signed"));
    EXPECT_EQ(host.messages(2), QStringList{watch.demand()});
}

TEST(UnattendedWatch, AMessageBoxGetsItsHarmlessAnswerAndIsNoDemand)
{
    TestHostServices host;
    const UnattendedWatch watch;
    EXPECT_EQ(
        QMessageBox::question(nullptr, "Halvane", "Delete everything?", QMessageBox::Yes | QMessageBox::No),
        QMessageBox::No);
    EXPECT_FALSE(watch.wasAsked());
    ASSERT_EQ(host.messages(2).size(), 1);
    EXPECT_TRUE(host.messages(2)[0].contains("Delete everything?"));
}

TEST(UnattendedWatch, AScriptsAnswerGoesBeforeTheHarmlessOne)
{
    TestHostServices host;
    PressScript script({"Yes", "Retry"});
    const UnattendedWatch watch(&script);
    const auto ask = [] {
        return QMessageBox::question(nullptr, "Halvane", "Go on?", QMessageBox::Yes | QMessageBox::No);
    };
    EXPECT_EQ(ask(), QMessageBox::Yes);
    EXPECT_EQ(script.next(), QString("Retry"));
    EXPECT_EQ(ask(), QMessageBox::No) << "it has no button of that name";
    EXPECT_FALSE(script.isDone());
    EXPECT_EQ(host.messages(1), QStringList("Pressed as told: Yes."));
}

TEST(PressScript, PressesWhatHasTheNameAndCanBePressed)
{
    TestHostServices host;
    QWidget window;
    QPushButton hidden("Go", &window);
    QPushButton disabled("Go", &window);
    QCheckBox box("&Go", &window);
    QPushButton iconOnly(&window);
    hidden.hide();
    disabled.setEnabled(false);
    iconOnly.setAccessibleName("Effects");
    int clicks = 0;
    QObject::connect(&iconOnly, &QPushButton::clicked, &window, [&] { ++clicks; });
    PressScript script({"Go", "Effects", "go"});
    EXPECT_TRUE(script.pressIn(window));
    EXPECT_TRUE(box.isChecked());
    EXPECT_TRUE(script.pressIn(window));
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(script.pressIn(window)) << "case counts";
    EXPECT_EQ(script.next(), QString("go"));
    EXPECT_FALSE(PressScript().pressIn(window));
}

TEST(UnattendedWatch, AFileDialogWantsAFile)
{
    TestHostServices host;
    const UnattendedWatch watch;
    EXPECT_TRUE(QFileDialog::getOpenFileNames(nullptr, "Open 3D Volumetric Data").isEmpty());
    EXPECT_EQ(watch.demand(),
              QString("\"Open 3D Volumetric Data\" asks for values that only you have: File name"));
}

TEST(UnattendedWatch, LeavesProgressAlone)
{
    TestHostServices host;
    const UnattendedWatch watch;
    QProgressDialog progress("Reading", "Abort", 0, 10);
    progress.setWindowModality(Qt::ApplicationModal);
    progress.show();
    QTest::qWait(50);
    EXPECT_TRUE(progress.isVisible());
    EXPECT_FALSE(progress.wasCanceled());
    EXPECT_FALSE(watch.wasAsked());
}

}  // namespace
