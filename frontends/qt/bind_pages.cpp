// Pages on a grey desk: only those in sight are ever drawn, and drawn anew only where they changed.
#include <QAbstractScrollArea>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <array>

#include "frontends/qt/accessible_role.h"
#include "frontends/qt/binding.h"
#include "frontends/qt/painter_surface.h"
#include "frontends/qt/units.h"
#include "support/forms/page_places.h"

namespace vmgv {
namespace {

constexpr int kShadow = 3;       // pixels
constexpr int kWheelStep = 120;  // an eighth of a degree each, of a wheel that clicks
constexpr QSize kSmallest(320, 240);

class PageView final : public QAbstractScrollArea {
 public:
  explicit PageView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleRole(*this, QAccessible::Document);
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
  }

  void show(PagePane& pane, UserActs& acts) {
    pane_ = &pane;
    acts_ = &acts;
  }

  void follow() {
    if (scrolled_ != pane_->page()) horizontalScrollBar()->setValue(0);
    arrange();
    if (std::exchange(scrolled_, pane_->page()) != pane_->page() && isZoomed()) {
      verticalScrollBar()->setValue(fromEnd_ ? verticalScrollBar()->maximum() : 0);
    }
    fromEnd_ = false;
    viewport()->update();
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QAbstractScrollArea::resizeEvent(event);
    arrange();
  }

  void focusInEvent(QFocusEvent* event) override {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
  }
  void focusOutEvent(QFocusEvent* event) override {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
  }

  void paintEvent(QPaintEvent*) override {
    QPainter painter(viewport());
    const QPointF origin(-horizontalScrollBar()->value(), isZoomed() ? -verticalScrollBar()->value() : 0);
    for (const PagePlace& place : places_.pages) {
      const QRect page = QRectF(place.rect.left, place.rect.top, place.rect.width, place.rect.height)
                             .translated(origin)
                             .toAlignedRect();
      painter.fillRect(page.translated(kShadow, kShadow), palette().color(QPalette::Shadow));
      painter.drawPixmap(page.topLeft(), pictureOf(place.page, page.size()));
    }
    if (hasFocus()) {
      painter.setPen(palette().color(QPalette::Highlight));
      painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
    }
  }

  // Within the page as far as it goes, then on to the next one.
  void wheelEvent(QWheelEvent* event) override {
    turned_ += event->angleDelta().y();
    const int clicks = turned_ / kWheelStep;
    turned_ -= clicks * kWheelStep;
    const bool within =
        isZoomed() && (clicks > 0 ? verticalScrollBar()->value() > 0
                                  : verticalScrollBar()->value() < verticalScrollBar()->maximum());
    if (within || event->modifiers() != Qt::NoModifier) {
      QAbstractScrollArea::wheelEvent(event);
    } else if (clicks != 0) {
      turn(-clicks);
    }
    event->accept();
  }

  void keyPressEvent(QKeyEvent* event) override {
    const int key = event->key();
    const QScrollBar& bar = *verticalScrollBar();
    if (key == Qt::Key_Up && (!isZoomed() || bar.value() == 0)) return turn(-1);
    if (key == Qt::Key_Down && (!isZoomed() || bar.value() == bar.maximum())) return turn(1);
    QAbstractScrollArea::keyPressEvent(event);
  }

  // The bar stands for the pages where a whole page is in sight.
  void scrollContentsBy(int, int) override {
    if (!isZoomed() && !arranging_ && pane_) {
      const int page = verticalScrollBar()->value();
      acts_->run([&] { pane_->turnTo(page); });
    }
    viewport()->update();
  }

 private:
  struct Picture {
    int page = 0;
    std::uint64_t version = 0;
    QPixmap pixels;
  };

  bool isZoomed() const { return pane_ && pane_->viewMode() == ViewMode::ZoomedIn; }

  void turn(int pages) {
    const int page = std::clamp(pane_->page() + pages, 1, std::max(pane_->count(), 1));
    fromEnd_ = pages < 0;
    acts_->run([&] { pane_->turnTo(page); });
  }

  void arrange() {
    if (!pane_) return;
    arranging_ = true;
    const QSize inside = viewport()->size();
    places_ = placesOf(*pane_, inside.width(), inside.height(), logicalDpiY() / kPointsPerInch);
    const auto fit = [](QScrollBar& bar, int length, int room) {
      bar.setRange(0, std::max(0, length - room));
      bar.setPageStep(room);
      bar.setSingleStep(std::max(room / 20, 1));
    };
    fit(*horizontalScrollBar(), isZoomed() ? static_cast<int>(places_.width) : 0, inside.width());
    QScrollBar& bar = *verticalScrollBar();
    if (isZoomed()) {
      fit(bar, static_cast<int>(places_.height), inside.height());
    } else {
      bar.setRange(1, std::max(pane_->count(), 1));
      bar.setPageStep(1);
      bar.setSingleStep(1);
      bar.setValue(pane_->page());
    }
    arranging_ = false;
  }

  const QPixmap& pictureOf(int page, QSize size) {
    const qreal ratio = devicePixelRatioF();
    Picture& picture = pictures_[static_cast<std::size_t>(page) % pictures_.size()];
    if (picture.page == page && picture.version == pane_->version() &&
        picture.pixels.size() == size * ratio) {
      return picture.pixels;
    }
    picture = {page, pane_->version(), QPixmap(size * ratio)};
    picture.pixels.fill(Qt::white);
    QPainter painter(&picture.pixels);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const double scale = size.width() * ratio / pane_->paper().width;
    painter.scale(scale, scale);
    PainterSurface surface(painter);
    try {
      pane_->pages()->draw(page, surface);
    } catch (const std::exception& error) {  // said where the page would be: a box would stop the painting
      painter.setClipping(false);
      painter.setPen(Qt::black);
      const PageSize paper = pane_->paper();
      painter.drawText(QRectF(0, 0, paper.width, paper.height), Qt::AlignCenter | Qt::TextWordWrap,
                       QString::fromUtf8(error.what()));
    }
    painter.end();
    picture.pixels.setDevicePixelRatio(ratio);
    return picture.pixels;
  }

  PagePane* pane_ = nullptr;
  UserActs* acts_ = nullptr;
  PagePlaces places_;
  std::array<Picture, 2> pictures_;
  int scrolled_ = 0;        // the page that the bars were last set for
  int turned_ = 0;          // of the wheel, short of a click
  bool fromEnd_ = false;    // the page before is shown from its end
  bool arranging_ = false;  // sets the bars itself
};

class PageBinding final : public BindingOf<PagePane, PageView> {
 public:
  PageBinding(PagePane& pane, QWidget& parent, UserActs& acts) : BindingOf(pane, parent) {
    view_.show(pane, acts);
  }

  QSize naturalSize() const override { return kSmallest; }

 protected:
  void followContent() override { view_.follow(); }
};

}  // namespace

std::unique_ptr<Binding> bind(PagePane& pane, QWidget& parent, UserActs& acts) {
  return std::make_unique<PageBinding>(pane, parent, acts);
}

}  // namespace vmgv
