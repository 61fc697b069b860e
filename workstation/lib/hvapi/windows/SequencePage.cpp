#include "lib/hvapi/windows/SequencePage.h"

#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/windows/ClickPane.h"

#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString kindText(SequenceDescription const& description)
{
    QString text;
    switch (description.kind) {
    case SequenceKind::Sla:
        text = SequencePage::tr("Optical sequence for light-source analysis");
        break;
    case SequenceKind::Ct:
        text = SequencePage::tr("CT sequence");
        break;
    case SequenceKind::Scene3D:
        text = SequencePage::tr("3D scene");
        break;
    case SequenceKind::Other:
        text = SequencePage::tr("Image sequence");
        break;
    }
    return description.loadedAsGroup ? SequencePage::tr("%1, loaded as a group").arg(text) : text;
}

QLabel* selectableLabel(QString const& name)
{
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

}  // namespace

SequencePage::SequencePage(CHVSSequenceDataset* sequence, QWidget* parent)
    : QWidget(parent)
    , m_name(selectableLabel("m_pSequenceName"))
    , m_kind(selectableLabel("m_pSequenceKind"))
    , m_folder(selectableLabel("m_pSequenceFolder"))
    , m_clicks(selectableLabel("m_pSequenceClicks"))
    , m_volumeTitle(new QLabel)
    , m_files(new QListWidget)
    , m_card(new QWidget)
    , m_pane(new ClickPane)
{
    QFont large = m_name->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setWeight(QFont::DemiBold);
    m_name->setFont(large);

    QFont section = m_volumeTitle->font();
    section.setWeight(QFont::DemiBold);
    m_volumeTitle->setFont(section);
    m_files->setObjectName("m_pSequenceFiles");
    m_files->setSelectionMode(QAbstractItemView::NoSelection);
    m_files->setFocusPolicy(Qt::NoFocus);
    m_files->setFrameShape(QFrame::NoFrame);
    m_files->setTextElideMode(Qt::ElideMiddle);

    auto* facts = new QFormLayout;
    facts->setLabelAlignment(Qt::AlignLeft | Qt::AlignTop);
    facts->setHorizontalSpacing(18);
    facts->setVerticalSpacing(6);
    facts->addRow(tr("Kind"), m_kind);
    facts->addRow(tr("Folder"), m_folder);
    facts->addRow(tr("Images"), m_clicks);

    auto* openScene = new QPushButton(tr("Open 3D View"));
    openScene->setObjectName("m_pOpenSceneButton");
    connect(openScene, &QPushButton::clicked, this, &SequencePage::openSceneClicked);

    auto* column = new QVBoxLayout;
    column->setSpacing(12);
    column->addWidget(m_name);
    column->addLayout(facts);
    column->addSpacing(8);
    column->addWidget(m_volumeTitle);
    column->addWidget(m_files, 100);
    column->addWidget(openScene, 0, Qt::AlignLeft);
    column->addStretch(1);

    m_card->setLayout(column);

    auto* page = new QHBoxLayout(this);
    page->setContentsMargins(28, 24, 28, 24);
    page->setSpacing(20);
    page->addWidget(m_card, 1);
    page->addWidget(m_pane, 2);
    page->addStretch(0);
    display(sequence);
}

void SequencePage::display(CHVSSequenceDataset* sequence)
{
    auto& registry = SequenceRegistry::instance();
    auto const description = registry.description(sequence);
    auto const files = registry.loadedVolumetricData(sequence);
    m_name->setText(description.id);
    m_kind->setText(kindText(description));
    m_folder->setText(description.infoPath.isEmpty() ? tr("Not saved yet")
                                                     : QDir::toNativeSeparators(description.infoPath));
    m_clicks->setText(description.clickNumbers.isEmpty()
                          ? tr("None")
                          : description.clickNumbers.join(QStringLiteral(", ")));
    m_volumeTitle->setText(files.isEmpty()     ? tr("No volume is loaded.")
                           : files.size() == 1 ? tr("Loaded volume: one file")
                                               : tr("Loaded volume: %1 files").arg(files.size()));
    m_card->setMaximumWidth(description.clickNumbers.isEmpty() ? 640 : 300);
    m_pane->display(sequence);
    m_files->clear();
    m_files->setVisible(!files.isEmpty());
    for (auto const& file : files) {
        auto* item = new QListWidgetItem(QFileInfo(file).fileName(), m_files);
        item->setToolTip(QDir::toNativeSeparators(file));
    }
}
