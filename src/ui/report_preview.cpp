#include "ui/report_preview.h"

#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSpinBox>
#include <algorithm>

#include "run/run_messages.h"
#include "ui/help_key.h"
#include "ui/message_box.h"
#include "ui/qt_text.h"
#include "ui/report_printing.h"

namespace tovak::ui {
namespace {

constexpr double kZoomStep = 1.25;
constexpr double kLeastZoom = 0.4;
constexpr double kMostZoom = 4.0;

}  // namespace

/// One sheet of paper, white in every palette.
class SheetView final : public QWidget {
 public:
  explicit SheetView(QPrinter& printer) : printer_(printer) { setObjectName("sheet"); }

  void show(const report::Sheet& sheet, const report::SheetSize& size) {
    sheet_ = sheet;
    size_ = size;
    update();
  }
  const report::Sheet& sheet() const { return sheet_; }

  void setPaperWidth(int width) {
    const QSizeF paper = printer_.pageLayout().fullRectPixels(printer_.resolution()).size();
    setFixedSize(width, static_cast<int>(width * paper.height() / paper.width()));
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(Qt::black);
    const QPageLayout layout = printer_.pageLayout();
    const double scale = width() / static_cast<double>(layout.fullRectPixels(printer_.resolution()).width());
    painter.scale(scale, scale);
    painter.translate(layout.paintRectPixels(printer_.resolution()).topLeft());
    paintOneSheet(painter, printer_, size_, sheet_);
  }

 private:
  QPrinter& printer_;
  report::Sheet sheet_;
  report::SheetSize size_;
};

frmTovakReport::frmTovakReport(QPrinter& printer, report::ReportSheets& sheets, QWidget* parent)
    : QDialog(parent),
      sheets_(sheets),
      view_(new SheetView(printer)),
      area_(new QScrollArea(this)),
      number_(new QSpinBox(this)) {
  setObjectName("frmTovakReport");
  setWindowTitle(tr("Print Preview of %1").arg(QFileInfo(toQString(sheets.fileName())).fileName()));
  helpOnF1(*this, "report");
  new QVBoxLayout(this);
  makeButtons();
  area_->setObjectName("sheetArea");
  area_->setToolTip(tr("The report as it would be printed"));
  area_->setBackgroundRole(QPalette::Dark);
  area_->setAlignment(Qt::AlignCenter);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  area_->setWidget(view_);
  area_->viewport()->installEventFilter(this);
  layout()->addWidget(area_);
  resize(QSize(900, 720).boundedTo(screen()->availableSize()));
  number_->setValue(sheets.newestReport());
  showSheet(sheets.newestReport());
  area_->setFocus();
}

frmTovakReport::~frmTovakReport() = default;

void frmTovakReport::makeButtons() {
  auto* const row = new QHBoxLayout;
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  const auto add = [&](const char* name, const QString& text, const QString& tip, const QKeySequence& key,
                       auto action) {
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    button->setToolTip(key.isEmpty() ? tip : tip + " (" + key.toString(QKeySequence::NativeText) + ")");
    connect(button, &QPushButton::clicked, this, action);
    if (!key.isEmpty()) connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    row->addWidget(button);
  };
  const auto turn = [this](int number) { return [this, number] { number_->setValue(number); }; };
  const int last = sheets_.size().sheets;
  add("cmdFirst", tr("&First"), tr("The first page"), Qt::CTRL | Qt::Key_Home, turn(1));
  add("cmdBefore", tr("P&revious"), tr("The page before"), Qt::Key_PageUp, [this] { number_->stepDown(); });
  number_->setObjectName("txtPage");
  number_->setToolTip(tr("Number of the page shown"));
  number_->setRange(1, last);
  number_->setKeyboardTracking(false);
  connect(number_, &QSpinBox::valueChanged, this, &frmTovakReport::showSheet);
  row->addWidget(number_);
  row->addWidget(new QLabel(tr("of %1").arg(last), this));
  add("cmdNext", tr("&Next"), tr("The next page"), Qt::Key_PageDown, [this] { number_->stepUp(); });
  add("cmdLast", tr("&Last"), tr("The last page"), Qt::CTRL | Qt::Key_End, turn(last));
  row->addStretch();
  const auto zoomBy = [this](double factor) {
    return [this, factor] {
      zoom_ = std::clamp(zoom_ * factor, kLeastZoom, kMostZoom);
      fit();
    };
  };
  add("cmdSmaller", tr("&Smaller"), tr("Show the page smaller"), QKeySequence::ZoomOut, zoomBy(1 / kZoomStep));
  add("cmdLarger", tr("Lar&ger"), tr("Show the page larger"), QKeySequence::ZoomIn, zoomBy(kZoomStep));
  row->addStretch();
  add("cmdPrint", tr("&Print..."), tr("Choose printer and pages"), QKeySequence::Print, [this] { print(); });
  add("cmdReturn", tr("&Close"), tr("Close the preview"), {}, [this] { reject(); });
}

void frmTovakReport::showSheet(int number) {
  report::Sheet sheet;
  if (sheets_.take(number, sheet)) {
    view_->show(sheet, sheets_.size());
  } else {
    const std::string& error = sheets_.error();
    showMessage(this, run::systemMessage(error.empty() ? sheets_.fileName() + " has become shorter." : error));
  }
  area_->verticalScrollBar()->setValue(0);
}

void frmTovakReport::print() {
  printReport(this, sheets_);
  sheets_.rewind();
}

void frmTovakReport::fit() {
  view_->setPaperWidth(static_cast<int>(zoom_ * area_->viewport()->width()));
}

/// The paper is as wide as the room for it.
bool frmTovakReport::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) fit();
  return QDialog::eventFilter(watched, event);
}

}  // namespace tovak::ui
