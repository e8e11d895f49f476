#include "desk/window/StrategyFinder.h"

#include "embedded_host/widgets/PlainToolTip.h"
#include "words/Words.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace {

constexpr int WidestList = 420;
constexpr int ShownStrategies = 12;

/// "AITWAP  智能TWAP" of an item of the box.
QString lineOf(const QComboBox& box, int item)
{
    const QString code = box.itemData(item).toString();
    const QString name = box.itemText(item);
    return code == name ? name : QStringLiteral("%1  %2").arg(code, name);
}

} // namespace

StrategyFinder::StrategyFinder(QComboBox* box)
    : QFrame(box, Qt::Popup), mBox(box), mSearch(new QLineEdit(this)), mList(new QListView(this)),
      mFound(new QSortFilterProxyModel(this))
{
    setObjectName(QStringLiteral("strategyFinder"));
    setFrameShape(QFrame::StyledPanel);
    mSearch->setPlaceholderText(Words::tr("输入代码或名称"));
    mSearch->setAccessibleName(Words::tr("查找算法"));
    mList->setAccessibleName(Words::tr("找到的算法"));
    mList->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mList->setUniformItemSizes(true);
    mList->setModel(mFound);
    mFound->setFilterCaseSensitivity(Qt::CaseInsensitive);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(mSearch);
    column->addWidget(mList);
    mSearch->installEventFilter(this);
    box->installEventFilter(this);
    connect(mSearch, &QLineEdit::textChanged, this, &StrategyFinder::filter);
    connect(mSearch, &QLineEdit::returnPressed, this, &StrategyFinder::choose);
    connect(mList, &QListView::clicked, this, &StrategyFinder::choose);
    connect(box, &QComboBox::currentTextChanged, this, &StrategyFinder::showCode);
    showCode();
}

void StrategyFinder::open(const QString& search)
{
    if (!mBox->isEnabled()) {
        return;
    }
    auto* all = new QStandardItemModel(mFound);
    for (int item = 0; item < mBox->count(); ++item) {
        auto* row = new QStandardItem(lineOf(*mBox, item));
        row->setData(item);
        all->appendRow(row);
    }
    delete mFound->sourceModel();
    mFound->setSourceModel(all);
    mSearch->setText(search);
    filter(search);
    const int width = qMax(mBox->width(), qMin(mList->sizeHintForColumn(0) + 40, WidestList));
    resize(width, mSearch->sizeHint().height() + ShownStrategies * mList->sizeHintForRow(0) + 20);
    move(mBox->mapToGlobal(QPoint(0, mBox->height())));
    show();
    mSearch->setFocus();
}

bool StrategyFinder::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress;
    if (isKey && (watched == mBox ? searchOnKey(event) : moveOnKey(event))) {
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

/// A letter that is typed while the box has the focus begins a search.
bool StrategyFinder::searchOnKey(QEvent* event)
{
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isPlain = (key->modifiers() & ~Qt::ShiftModifier & ~Qt::KeypadModifier) == Qt::NoModifier;
    const QString typed = key->text();
    if (!isPlain || typed.isEmpty() || !typed.at(0).isLetterOrNumber()) {
        return false;
    }
    open(typed);
    return true;
}

/// The arrows move in the list while the search keeps the focus.
bool StrategyFinder::moveOnKey(QEvent* event)
{
    const int key = static_cast<QKeyEvent*>(event)->key();
    const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
    const QModelIndex next = mFound->index(mList->currentIndex().row() + step, 0);
    if (step != 0 && next.isValid()) {
        mList->setCurrentIndex(next);
    }
    return step != 0;
}

void StrategyFinder::filter(const QString& search)
{
    mFound->setFilterFixedString(search.trimmed());
    mList->setCurrentIndex(mFound->index(0, 0));
}

void StrategyFinder::choose()
{
    const QModelIndex found = mList->currentIndex();
    if (!found.isValid()) {
        return;
    }
    const int item = found.data(Qt::UserRole + 1).toInt();
    hide();
    mBox->setFocus();
    mBox->setCurrentIndex(item);
}

/// The box shows names alone.
void StrategyFinder::showCode()
{
    const QString shown = lineOf(*mBox, mBox->currentIndex());
    mBox->setToolTip(plainToolTip(Words::tr("%1（输入代码或名称查找，Ctrl+T）").arg(shown)));
    mBox->setAccessibleDescription(shown);
}
