// Open lists of entries, with and without a header.
#include <QApplication>
#include <QHeaderView>
#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QStringListModel>
#include <QStyleOptionViewItem>
#include <QTreeView>
#include <algorithm>

#include "frontends/qt/binding.h"
#include "frontends/qt/colour.h"

namespace vmgv {
namespace {

// An entry is as high as all others, whatever breaks its text.
QString onOneLine(QString text) {
  std::replace_if(
      text.begin(), text.end(), [](QChar c) { return c < u' '; }, u' ');
  return text;
}

class Entries final : public QStringListModel {
 public:
  void setHeader(const QString& header) {
    if (header_ == header) return;
    header_ = header;
    emit headerDataChanged(Qt::Horizontal, 0, 0);
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    const bool ours = section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole;
    return ours ? QVariant(header_) : QStringListModel::headerData(section, orientation, role);
  }

 private:
  QString header_;
};

// A view marks its first entry as the current one when the focus comes in; the Down key would then begin at
// the second. Without an entry to mark it would not show that it has the focus.
template <class View>
class ListWidget final : public View {
 public:
  using View::View;

 protected:
  void focusInEvent(QFocusEvent* event) override {
    View::focusInEvent(event);
    if (!this->selectionModel()->hasSelection()) this->selectionModel()->clearCurrentIndex();
  }
  void paintEvent(QPaintEvent* event) override {
    View::paintEvent(event);
    if (!this->hasFocus()) return;
    QPainter painter(this->viewport());
    painter.setPen(this->palette().color(QPalette::Highlight));
    painter.drawRect(this->viewport()->rect().adjusted(0, 0, -1, -1));
  }
};

template <class Kind, class View>
class ListBinding : public BindingOf<Kind, ListWidget<View>> {
 public:
  ListBinding(Kind& list, QWidget& parent, UserActs& acts) : BindingOf<Kind, ListWidget<View>>(list, parent) {
    view().setModel(&entries_);
    view().setEditTriggers(QAbstractItemView::NoEditTriggers);
    view().setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QObject::connect(view().selectionModel(), &QItemSelectionModel::selectionChanged, &view(), [this, &acts] {
      if (!following_) acts.run([this] { this->control_.setListIndex(selected()); });
    });
  }

  QSize naturalSize() const override {
    const QWidget& widget = this->view_;
    QStyleOptionViewItem option;
    option.initFrom(&widget);
    option.font = widget.font();
    option.features = QStyleOptionViewItem::HasDisplay;
    option.text = QStringLiteral("X");
    const int entry =
        widget.style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, &widget).height();
    const int border = 2 * this->view_.frameWidth();
    const int bar = this->view_.verticalScrollBar()->sizeHint().width();
    return {this->control_.columns * widget.fontMetrics().averageCharWidth() + bar + border,
            this->control_.rows * entry + border};
  }

 protected:
  ListWidget<View>& view() { return this->view_; }

  void followContent() override {
    following_ = true;
    if (shown_ != this->control_.items()) {
      shown_ = this->control_.items();
      QStringList texts;
      for (const std::string& entry : shown_) texts << onOneLine(qt(entry));
      const int scrolled = view().verticalScrollBar()->value();
      entries_.setStringList(texts);
      view().doItemsLayout();
      view().verticalScrollBar()->setValue(scrolled);  // a long list stays where the user looks
    }
    const int wanted = this->control_.listIndex();
    if (wanted < 0) {
      view().selectionModel()->clear();
    } else if (selected() != wanted) {
      view().setCurrentIndex(entries_.index(wanted));
    }
    following_ = false;
  }

  Entries entries_;

 private:
  int selected() {
    const QModelIndexList rows = view().selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
  }

  std::vector<std::string> shown_;
  bool following_ = false;
};

class ListBoxBinding final : public ListBinding<ListBox, QListView> {
 public:
  ListBoxBinding(ListBox& list, QWidget& parent, UserActs& acts) : ListBinding(list, parent, acts) {
    view().setUniformItemSizes(true);
    QObject::connect(&view(), &QAbstractItemView::doubleClicked, &view(),
                     [this, &acts](const QModelIndex& entry) {
                       acts.run([this, row = entry.row()] { control_.doubleClick(row); });
                     });
  }

 protected:
  void followContent() override {
    ListBinding::followContent();
    if (!control_.selectedColours()) return;
    QPalette palette = QApplication::palette(&view());
    const QColor back = qtColour(control_.selectedColours()->back, palette);
    const QColor fore = qtColour(control_.selectedColours()->fore, palette);
    palette.setColor(QPalette::Highlight, back);
    palette.setColor(QPalette::HighlightedText, readable(fore, back));
    view().setPalette(palette);
  }
};

class ListViewBinding final : public ListBinding<ListView, QTreeView> {
 public:
  ListViewBinding(ListView& list, QWidget& parent, UserActs& acts) : ListBinding(list, parent, acts) {
    view().setRootIsDecorated(false);
    view().setUniformRowHeights(true);
  }

  QSize naturalSize() const override {
    const QSize list = ListBinding::naturalSize();
    return {list.width(), list.height() + view_.header()->sizeHint().height()};
  }

 protected:
  void followContent() override {
    entries_.setHeader(qt(control_.header()));
    ListBinding::followContent();
  }
};

}  // namespace

std::unique_ptr<Binding> bind(ListBox& list, QWidget& parent, UserActs& acts) {
  return std::make_unique<ListBoxBinding>(list, parent, acts);
}
std::unique_ptr<Binding> bind(ListView& list, QWidget& parent, UserActs& acts) {
  return std::make_unique<ListViewBinding>(list, parent, acts);
}

}  // namespace vmgv
