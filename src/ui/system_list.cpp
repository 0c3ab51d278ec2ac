#include "ui/system_list.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "run/projection_code.h"
#include "run/system_data.h"
#include "ui/help_key.h"
#include "ui/qt_text.h"

namespace tovak::ui {
namespace {

enum Column { kNumber, kName, kDatum };

bool hasAllWords(const QTreeWidgetItem& item, const QStringList& words) {
  const QString text = item.text(kNumber) + ' ' + item.text(kName) + ' ' + item.text(kDatum);
  for (const QString& word : words) {
    if (!text.contains(word, Qt::CaseInsensitive)) return false;
  }
  return true;
}

/// The user-defined project is on the datum of its definition, whatever its number.
QString datumColumn(std::int16_t code, const QString& name) {
  const bool isProject = code == run::kUserDefinedProject;
  for (const char* const datum : {"NAD27", "NAD83"}) {
    if (isProject && name.endsWith(datum)) return datum;
  }
  if (isProject) return {};
  return run::isNad27(code) ? "NAD27" : "NAD83";
}

}  // namespace

frmTovakSystems::frmTovakSystems(run::ConversionEngine& engine, std::int16_t chosen, const QString& search,
                                 QWidget* parent)
    : QDialog(parent), txtSearch_(new QLineEdit(this)), lstSystems_(new QTreeWidget(this)) {
  setObjectName("frmTovakSystems");
  setWindowTitle(tr("Choose a Projection"));
  txtSearch_->setObjectName("txtSearch");
  txtSearch_->setPlaceholderText(tr("Search: number, name or datum"));
  txtSearch_->setToolTip(tr("Shows the systems that bear all these words"));
  txtSearch_->setClearButtonEnabled(true);
  txtSearch_->installEventFilter(this);
  lstSystems_->setObjectName("lstSystems");
  lstSystems_->setToolTip(tr("All systems that the conversion engine knows"));
  lstSystems_->setHeaderLabels({tr("Number"), tr("Name"), tr("Datum")});
  lstSystems_->setRootIsDecorated(false);
  lstSystems_->setUniformRowHeights(true);
  lstSystems_->setAlternatingRowColors(true);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  cmdChoose_ = buttons->button(QDialogButtonBox::Ok);
  cmdChoose_->setText(tr("&Choose"));
  cmdChoose_->setToolTip(tr("Take the selected system"));
  QPushButton* const cancel = buttons->button(QDialogButtonBox::Cancel);
  cancel->setText(tr("C&ancel"));
  cancel->setToolTip(tr("Keep the projection as it is"));
  // As in the other dialogs, whose buttons have no icons.
  for (QPushButton* const button : {cmdChoose_, cancel}) button->setIcon({});
  auto* const column = new QVBoxLayout(this);
  column->addWidget(txtSearch_);
  column->addWidget(lstSystems_);
  column->addWidget(buttons);
  resize(QSize(600, 420).boundedTo(screen()->availableSize()));

  connect(txtSearch_, &QLineEdit::textChanged, this, &frmTovakSystems::search);
  connect(lstSystems_, &QTreeWidget::itemActivated, this, &QDialog::accept);
  connect(lstSystems_, &QTreeWidget::itemSelectionChanged, this,
          [this] { cmdChoose_->setEnabled(code().has_value()); });
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  fill(engine, chosen);
  if (!search.isEmpty()) txtSearch_->setText(search);
  helpOnF1(*this, "projections");
}

void frmTovakSystems::fill(run::ConversionEngine& engine, std::int16_t chosen) {
  cmdChoose_->setEnabled(false);
  for (std::int16_t code = 0; code <= run::kLastProjectionCode; ++code) {
    const QString name = toQString(run::systemName(engine, code));
    if (name.isEmpty()) continue;
    auto* const item = new QTreeWidgetItem(lstSystems_, {QString::number(code), name, datumColumn(code, name)});
    item->setData(kNumber, Qt::UserRole, code);
    if (code == chosen) lstSystems_->setCurrentItem(item);
  }
  lstSystems_->header()->setStretchLastSection(false);
  lstSystems_->header()->setSectionResizeMode(kName, QHeaderView::Stretch);
}

std::optional<std::int16_t> frmTovakSystems::code() const {
  const QList<QTreeWidgetItem*> selected = lstSystems_->selectedItems();
  if (selected.isEmpty() || selected.front()->isHidden()) return std::nullopt;
  return static_cast<std::int16_t>(selected.front()->data(kNumber, Qt::UserRole).toInt());
}

/// The first match is selected, so that Enter takes it.
void frmTovakSystems::search(const QString& text) {
  const QStringList words = text.split(' ', Qt::SkipEmptyParts);
  QTreeWidgetItem* first = nullptr;
  for (int i = 0; i < lstSystems_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* const item = lstSystems_->topLevelItem(i);
    const bool found = hasAllWords(*item, words);
    item->setHidden(!found);
    if (found && first == nullptr) first = item;
  }
  lstSystems_->clearSelection();
  lstSystems_->setCurrentItem(first);
  cmdChoose_->setEnabled(first != nullptr);
}

/// The arrow keys move through the list while the person is typing.
bool frmTovakSystems::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
      QCoreApplication::sendEvent(lstSystems_, event);
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace tovak::ui
