#include "desk/window/MappingDialog.h"

#include "host/AlgoConstants.h"
#include "strategy/ColumnRules.h"
#include "words/Words.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

namespace Info = Algo_Fields::AlgoInstContentInfo;

constexpr int PreviewRows = 10;
constexpr int MostColumns = 200; // a wider table has its orders in the first ones
constexpr int MostValues = 60;   // of one column
constexpr int Examples = 3;

const QSize FirstSize(980, 680);

QLabel* makeLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText); // it tells what stands in files
    return label;
}

QLabel* makeHeading(const QString& text, QWidget* parent)
{
    QLabel* label = makeLabel(text, parent);
    label->setProperty("role", QStringLiteral("caption"));
    return label;
}

/// A list of choices: what is typed is the item's data.
void addChoices(QComboBox* box, const QList<strategy::Option>& choices)
{
    for (const strategy::Option& choice : choices) {
        box->addItem(QStringLiteral("%1 %2").arg(choice.value, choice.shown), choice.value);
    }
}

void choose(QComboBox* box, const QString& data)
{
    box->setCurrentIndex(std::max(0, box->findData(data)));
}

/// What stood there may be in the midst of a signal of its own.
QGridLayout* emptied(QScrollArea* area)
{
    if (QWidget* before = area->takeWidget()) {
        before->deleteLater();
    }
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(8, 6, 8, 6);
    area->setWidget(page);
    return grid;
}

} // namespace

MappingDialog::MappingDialog(const strategy::Strategy& strategy, const table::Table& table,
                             const mapping::Surroundings& surroundings, QWidget* parent)
    : QDialog(parent), mStrategy(strategy), mSurroundings(surroundings), mTable(table),
      mSheets(new QComboBox), mLine(new QSpinBox), mColumns(new QScrollArea), mValues(new QScrollArea),
      mPreview(new QTableWidget), mState(makeLabel(QString(), this)),
      mRemember(new QCheckBox(Words::tr("记住，表头相同的文件下次直接导入(&R)"))), mAccept(nullptr)
{
    setWindowTitle(Words::tr("列映射 · %1").arg(strategy.alias));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    resize(FirstSize);
    build();
}

void MappingDialog::build()
{
    mState->setObjectName(QStringLiteral("label_mappingState"));
    mState->setWordWrap(true);
    mRemember->setObjectName(QStringLiteral("check_remember"));
    mRemember->setChecked(true);
    mPreview->setObjectName(QStringLiteral("table_mappingPreview"));
    mPreview->setAccessibleName(Words::tr("映射后的前十行"));
    mPreview->setEditTriggers(QAbstractItemView::NoEditTriggers);
    mPreview->setTabKeyNavigation(false);
    mPreview->setMinimumHeight(140);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    mAccept = buttons->addButton(Words::tr("按此映射导入(&I)"), QDialogButtonBox::AcceptRole);
    mAccept->setObjectName(QStringLiteral("button_acceptMapping"));
    mAccept->setDefault(true);
    auto* plain = buttons->addButton(Words::tr("照原样导入(&P)"), QDialogButtonBox::ActionRole);
    plain->setObjectName(QStringLiteral("button_importPlain"));
    plain->setToolTip(Words::tr("不用映射，由批量导入指出缺少的列"));
    connect(plain, &QPushButton::clicked, this, [this] {
        mIsPlainWanted = true;
        accept();
    });
    buttons->button(QDialogButtonBox::Cancel)->setText(Words::tr("取消"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->addWidget(makePlace());
    column->addWidget(makeLists(), 3);
    column->addWidget(makeHeading(Words::tr("导入时看到的前十行"), this));
    column->addWidget(mPreview, 2);
    column->addWidget(mState);
    column->addWidget(mRemember);
    column->addWidget(buttons);
}

QWidget* MappingDialog::makePlace()
{
    auto* place = new QWidget(this);
    auto* row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    auto* sheetLabel = makeLabel(Words::tr("工作表(&S)"), place);
    sheetLabel->setBuddy(mSheets);
    auto* lineLabel = makeLabel(Words::tr("表头所在行(&L)"), place);
    lineLabel->setBuddy(mLine);
    mSheets->setObjectName(QStringLiteral("combo_sheet"));
    mSheets->setAccessibleName(Words::tr("工作表"));
    mSheets->setEnabled(false);
    mLine->setObjectName(QStringLiteral("spin_headerLine"));
    mLine->setAccessibleName(Words::tr("表头所在行"));
    connect(mLine, QOverload<int>::of(&QSpinBox::valueChanged), this, &MappingDialog::takeLine);
    connect(mSheets, &QComboBox::currentTextChanged, this, &MappingDialog::takeSheet);
    row->addWidget(sheetLabel);
    row->addWidget(mSheets);
    row->addSpacing(16);
    row->addWidget(lineLabel);
    row->addWidget(mLine);
    row->addStretch();
    return place;
}

QWidget* MappingDialog::makeLists()
{
    auto* lists = new QWidget(this);
    auto* grid = new QGridLayout(lists);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(makeHeading(Words::tr("文件的列 → 算法的列"), lists), 0, 0);
    grid->addWidget(makeHeading(Words::tr("文件中的值 → 导入的值"), lists), 0, 1);
    mColumns->setAccessibleName(Words::tr("列"));
    mValues->setAccessibleName(Words::tr("值"));
    for (QScrollArea* area : {mColumns, mValues}) {
        area->setWidgetResizable(true);
        area->setFocusPolicy(Qt::NoFocus);
    }
    grid->addWidget(mColumns, 1, 0);
    grid->addWidget(mValues, 1, 1);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    return lists;
}

void MappingDialog::setSheets(const QStringList& names, const ReadSheet& read)
{
    mReadSheet = read;
    mIsShowing = true;
    mSheets->addItems(names);
    mSheets->setCurrentText(mTable.sheet);
    mSheets->setEnabled(names.size() > 1);
    mIsShowing = false;
}

void MappingDialog::start(const std::optional<mapping::Mapping>& mapping)
{
    if (mapping && mapping->sheet == mTable.sheet && headerRow(*mapping, mTable) >= 0) {
        mMapping = *mapping;
        mMapping.headerLine = mTable.lineOf(headerRow(*mapping, mTable));
        change([] {});
    } else {
        suggestAgain(mapping::likelyHeader(mStrategy, mTable));
    }
}

bool MappingDialog::isToBeRemembered() const
{
    return mRemember->isChecked();
}

QStringList MappingDialog::header() const
{
    return mTable.rows.value(headerRow(mMapping, mTable)).mid(0, MostColumns);
}

void MappingDialog::takeSheet(const QString& name)
{
    if (mIsShowing || !mReadSheet || name == mTable.sheet) {
        return;
    }
    const table::Table read = mReadSheet(name);
    if (!read.error.isEmpty()) {
        mState->setText(read.error);
        return;
    }
    mTable = read;
    suggestAgain(mapping::likelyHeader(mStrategy, mTable));
}

void MappingDialog::takeLine(int line)
{
    const int row = mTable.lines.isEmpty() ? line - 1 : mTable.lines.indexOf(line);
    if (!mIsShowing && row >= 0 && row < mTable.rows.size()) {
        suggestAgain(row);
    }
}

void MappingDialog::suggestAgain(int headerRow)
{
    change([&] {
        mMapping = mapping::suggestAt(headerRow, mStrategy, mTable, mSurroundings).mapping;
        mMapping.headerLine = mTable.lineOf(headerRow);
    });
}

/// Shows everything anew; the focus stays at the widget of the same name.
void MappingDialog::change(const std::function<void()>& act)
{
    if (mIsShowing) {
        return;
    }
    const QString focused = focusWidget() ? focusWidget()->objectName() : QString();
    mIsShowing = true;
    act();
    mLine->setRange(mTable.lineOf(0),
                    mTable.lineOf(std::min(mTable.rows.size(), mapping::MostTitleRows) - 1));
    mLine->setValue(mMapping.headerLine);
    showColumns();
    showValues();
    showOutcome();
    mIsShowing = false;
    if (auto* widget = focused.isEmpty() ? nullptr : findChild<QWidget*>(focused)) {
        widget->setFocus();
    }
}

mapping::Column* MappingDialog::columnFrom(int column)
{
    const QStringList titles = header();
    const int number = titles.mid(0, column + 1).count(titles.value(column));
    for (mapping::Column& known : mMapping.columns) {
        if (known.from == titles.value(column) && known.number == number) {
            return &known;
        }
    }
    return nullptr;
}

void MappingDialog::showColumns()
{
    QGridLayout* grid = emptied(mColumns);
    for (int column = 0; column < header().size(); ++column) {
        addColumnRow(grid, column);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    grid->setColumnStretch(1, 1);
}

void MappingDialog::addColumnRow(QGridLayout* grid, int column)
{
    const QString title = header().at(column);
    const QStringList texts = mapping::textsBelow(headerRow(mMapping, mTable), column, mTable);
    if (title.trimmed().isEmpty() && texts.isEmpty()) {
        return;
    }
    const mapping::Column* known = columnFrom(column);
    auto* label =
        makeLabel(title.isEmpty() ? Words::tr("（无标题，第 %1 列）").arg(column + 1) : title, this);
    auto* examples = makeHeading(QStringList(texts.mid(0, Examples)).join(QStringLiteral(" · ")), this);
    auto* target = new QComboBox;
    target->setObjectName(QStringLiteral("combo_column_%1").arg(column));
    target->setAccessibleName(Words::tr("“%1”对应的列").arg(title));
    target->addItem(Words::tr("（不导入）"), QString());
    for (const QString& wanted : mStrategy.titles()) {
        target->addItem(wanted, wanted);
    }
    choose(target, known ? known->to : QString());
    connect(target, QOverload<int>::of(&QComboBox::activated), this,
            [this, target, column] { setTarget(column, target->currentData().toString()); });
    const int row = grid->rowCount();
    grid->addWidget(label, row, 0);
    grid->addWidget(examples, row, 1);
    grid->addWidget(target, row, 2);
    if (!known || known->form != mapping::Form::DateTime) {
        return;
    }
    auto* order = new QComboBox;
    order->setObjectName(QStringLiteral("combo_order_%1").arg(column));
    order->setAccessibleName(Words::tr("“%1”的日期次序").arg(title));
    order->addItems({Words::tr("年-月-日"), Words::tr("日/月/年"), Words::tr("月/日/年")});
    order->setCurrentIndex(int(known->order));
    connect(order, QOverload<int>::of(&QComboBox::activated), this, [this, column](int index) {
        change([&] { columnFrom(column)->order = mapping::DateOrder(index); });
    });
    grid->addWidget(order, row, 3);
}

/// A column of the strategy has one source: another one gives it up.
void MappingDialog::setTarget(int column, const QString& title)
{
    change([&] {
        const QString from = header().at(column);
        const int number = header().mid(0, column + 1).count(from);
        auto& columns = mMapping.columns;
        columns.erase(std::remove_if(columns.begin(), columns.end(),
                                     [&](const mapping::Column& known) {
                                         return (known.from == from && known.number == number) ||
                                                known.to == title;
                                     }),
                      columns.end());
        const strategy::Column* wanted = mStrategy.column(title);
        if (wanted) {
            mMapping.constants.remove(title);
            mapping::Column made{from, number, title, mapping::formFor(*wanted), {}, {}};
            mapping::suggestValues(made, *wanted,
                                   mapping::textsBelow(headerRow(mMapping, mTable), column, mTable),
                                   mSurroundings);
            columns.append(made);
        }
    });
}

/// Texts that are told otherwise than they stand, those that the import does not take, and what holds of all
/// rows.
void MappingDialog::showValues()
{
    QGridLayout* grid = emptied(mValues);
    const mapping::Gaps gaps = gapsOf(mMapping, mStrategy, mTable, mSurroundings);
    for (const mapping::Column& column : qAsConst(mMapping.columns)) {
        QStringList texts = column.values.keys();
        for (const QString& open : gaps.values.value(column.to)) {
            if (!texts.contains(open) && texts.size() < MostValues) {
                texts.append(open);
            }
        }
        for (const QString& text : qAsConst(texts)) {
            addValueRow(grid, column.to, text);
        }
    }
    for (const strategy::Column& column : mStrategy.columns) {
        const bool isOpen = column.mustStandInFile() && !mMapping.columnTo(column.title) &&
                            !(column.kind == strategy::Kind::CreateAndStart &&
                              mStrategy.traits.has(strategy::StartsOnCreate));
        const bool isMarket = column.kind == strategy::Kind::Market;
        const bool isCode = column.kind == strategy::Kind::Code;
        const bool isWanted = isMarket ? gaps.missing.contains(column.title) : isOpen && !isCode;
        if (isWanted || mMapping.constants.contains(column.title)) {
            addConstantRow(grid, column);
        }
    }
    grid->setRowStretch(grid->rowCount(), 1);
    grid->setColumnStretch(1, 1);
}

void MappingDialog::addValueRow(QGridLayout* grid, const QString& title, const QString& text)
{
    const strategy::Column* wanted = mStrategy.column(title);
    const auto known = std::find_if(mMapping.columns.begin(), mMapping.columns.end(),
                                    [&](const mapping::Column& column) { return column.to == title; });
    if (!wanted || known == mMapping.columns.end()) {
        return;
    }
    const int row = grid->rowCount();
    const QString name = QStringLiteral("value_%1_%2").arg(title, text);
    const auto store = [this, title, text](const QString& value) {
        for (mapping::Column& column : mMapping.columns) {
            if (column.to == title && value.isEmpty()) {
                column.values.remove(text);
            } else if (column.to == title) {
                column.values[text] = value;
            }
        }
        showOutcome();
    };
    auto* box = new QComboBox;
    box->setObjectName(name);
    box->setAccessibleName(Words::tr("%1：“%2”导入为").arg(title, text));
    box->addItem(Words::tr("（保持原样）"), QString());
    if (wanted->kind == strategy::Kind::Market) {
        for (const QStringList& exchanges : mSurroundings.markets) {
            if (box->findData(exchanges.first()) < 0) {
                box->addItem(exchanges.first(), exchanges.first());
            }
        }
    } else {
        addChoices(box, mapping::choicesOf(*wanted));
    }
    choose(box, known->values.value(text));
    connect(box, QOverload<int>::of(&QComboBox::activated), this,
            [box, store] { store(box->currentData().toString()); });
    grid->addWidget(makeLabel(Words::tr("%1：%2").arg(title, text), this), row, 0);
    grid->addWidget(box, row, 1);
}

void MappingDialog::addConstantRow(QGridLayout* grid, const strategy::Column& column)
{
    const int row = grid->rowCount();
    const QString title = column.title;
    const QString value = mMapping.constants.value(title);
    const QString name = QStringLiteral("constant_") + title;
    const auto store = [this, title](const QString& text) {
        if (text.isEmpty()) {
            mMapping.constants.remove(title);
        } else {
            mMapping.constants[title] = text;
        }
        showOutcome();
    };
    QList<strategy::Option> choices = mapping::choicesOf(column);
    if (column.kind == strategy::Kind::Market) {
        for (auto market = mSurroundings.markets.cbegin(); market != mSurroundings.markets.cend(); ++market) {
            const bool isOwn = market.key() == market->first().toUpper();
            if (isOwn) {
                choices.append({QString(), market->first()});
            }
        }
    }
    QWidget* field = nullptr;
    if (choices.isEmpty()) {
        auto* line = new QLineEdit(value);
        connect(line, &QLineEdit::textEdited, this, store);
        field = line;
    } else {
        auto* box = new QComboBox;
        box->addItem(Words::tr("（请选择）"), QString());
        addChoices(box, choices);
        choose(box, value);
        connect(box, QOverload<int>::of(&QComboBox::activated), this,
                [box, store] { store(box->currentData().toString()); });
        field = box;
    }
    field->setObjectName(name);
    field->setAccessibleName(Words::tr("所有行的%1").arg(title));
    grid->addWidget(makeLabel(Words::tr("所有行的%1").arg(title), this), row, 0);
    grid->addWidget(field, row, 1);
}

void MappingDialog::showOutcome()
{
    showPreview();
    showGaps();
}

void MappingDialog::showPreview()
{
    const Outcome<table::Table> told = apply(mMapping, mTable, mSurroundings);
    const QList<QStringList>& rows = told.value.rows;
    const int count = std::min(rows.size() - 1, PreviewRows);
    mPreview->setColumnCount(rows.value(0).size());
    mPreview->setHorizontalHeaderLabels(rows.value(0));
    mPreview->setRowCount(std::max(0, count));
    for (int row = 0; row < count; ++row) {
        mPreview->setVerticalHeaderItem(row,
                                        new QTableWidgetItem(QString::number(told.value.lineOf(row + 1))));
        for (int column = 0; column < mPreview->columnCount(); ++column) {
            mPreview->setItem(row, column, new QTableWidgetItem(rows.at(row + 1).value(column)));
        }
    }
    mPreview->resizeColumnsToContents();
}

void MappingDialog::showGaps()
{
    const mapping::Gaps gaps = gapsOf(mMapping, mStrategy, mTable, mSurroundings);
    const QString separator = Words::tr("、");
    QStringList state;
    if (!gaps.missing.isEmpty()) {
        state.append(Words::tr("还缺：%1").arg(gaps.missing.join(separator)));
    }
    for (auto value = gaps.values.cbegin(); value != gaps.values.cend(); ++value) {
        state.append(
            Words::tr("%1 不接受：%2").arg(value.key(), QStringList(value->mid(0, 5)).join(separator)));
    }
    state.append(gaps.unmapped.isEmpty() ? Words::tr("文件的各列都已对应")
                                         : Words::tr("不导入的列：%1").arg(gaps.unmapped.join(separator)));
    mState->setText(state.join(QLatin1Char('\n')));
    // Rows with values that are not taken are refused one by one; without a column all are.
    QStringList missing = gaps.missing;
    missing.removeAll(Info::Exchange);
    mAccept->setEnabled(missing.isEmpty() && !mMapping.columns.isEmpty());
}
