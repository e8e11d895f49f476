// Window and runner come to the same verdict on the same file.

#include "desk/runner/Runner.h"
#include "desk/window/DeskBooks.h"
#include "desk/window/DeskWindow.h"
#include "desk/window/ImportPage.h"
#include "desk/window/VerdictDialog.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "embedded_host/UserPrompts.h"
#include "host/AlgoTradeLogicNew.h"
#include "host/SolveyAccountComboBox.h"
#include "host/ZelMessageBox.h"
#include "tests/support/DeskClock.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

namespace {

const QString DataFolder = QStringLiteral(ALGO_PROJECT_DIR "/reference_data");

/// What the runner prints of a creation that accepts nothing.
QJsonObject created(const QString& file, const QString& strategy, const QString& account)
{
    QTemporaryDir home;
    QByteArray bytes;
    QBuffer out(&bytes);
    QBuffer err;
    out.open(QIODevice::WriteOnly);
    err.open(QIODevice::WriteOnly);
    runner::run({"import"_s, file, "--strategy"_s, strategy, "--account"_s, account, "--data"_s, DataFolder,
                 "--home"_s, home.path(), "--confirm"_s, "--create"_s, "--yes"_s, "--accept"_s, "none"_s},
                out, err);
    EXPECT_EQ("", err.data().toStdString());
    return QJsonDocument::fromJson(bytes).object()["creation"_s].toObject();
}

/// Its refusals, questions and what it tells, one after the other.
QList<QJsonObject> linesOf(const QJsonObject& creation)
{
    QList<QJsonObject> lines;
    for (const char* kind : {"refusals", "warnings", "told"}) {
        for (const QJsonValue& line : creation["guard"_s].toObject()[QString::fromLatin1(kind)].toArray()) {
            lines.append(line.toObject());
        }
    }
    return lines;
}

QStringList rulesOf(const QJsonObject& creation)
{
    QStringList rules;
    for (const QJsonObject& line : linesOf(creation)) {
        rules.append(line["rule"_s].toString());
    }
    return rules;
}

/// "refuse: …" and "ask: rule", as they are shown, a line each; "nothing" where it did not come to a verdict.
QString shown(const QJsonObject& creation)
{
    if (creation["guard"_s].isNull()) {
        return "nothing\n"_s;
    }
    const QJsonObject guard = creation["guard"_s].toObject();
    QString text;
    for (const QJsonValue& line : guard["refusals"_s].toArray()) {
        text += "refuse: "_s + line.toObject()["text"_s].toString() + "\n"_s;
    }
    for (const QJsonValue& line : guard["warnings"_s].toArray()) {
        text += "ask: "_s + line.toObject()["rule"_s].toString() + "\n"_s;
    }
    return text;
}

/// Reads the verdict and cancels; closes every other box.
class Reader : public QObject {
public:
    explicit Reader(QString& text) : mText(text)
    {
        connect(&mTimer, &QTimer::timeout, this, &Reader::look);
        mTimer.start(5);
    }

private:
    void look()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* verdict = qobject_cast<VerdictDialog*>(modal)) {
            mText.clear();
            if (auto* refusals = verdict->findChild<QTextEdit*>("findings_error"_s)) {
                for (const QString& line : refusals->toPlainText().split("\n"_s)) {
                    mText += "refuse: "_s + line + "\n"_s;
                }
            }
            for (const QCheckBox* question : verdict->findChildren<QCheckBox*>()) {
                mText += "ask: "_s + question->property("rule").toString() + "\n"_s;
            }
            verdict->findChild<QAbstractButton*>("button_cancel"_s)->click();
        } else if (modal != nullptr) {
            auto* yes = modal->findChild<QAbstractButton*>("button_yes"_s); // to too many rows
            yes != nullptr && yes->isVisible() ? yes->click() : void(modal->close());
        }
    }

    QString& mText;
    QTimer mTimer;
};

QString byWindow(const QString& file, const QString& strategy, const QString& account)
{
    QTemporaryDir home;
    QString error;
    auto tables = readReferenceFolder(DataFolder, error);
    EXPECT_TRUE(tables.has_value()) << error.toStdString();
    EmbeddedHost::Options options;
    options.home = home.path();
    EmbeddedHost host(ReferenceData(std::move(*tables)), options);
    const auto books = openDeskBooks(ledger::Address::ofFile(ledger::Ledger::pathIn(home.path())),
                                     home.path(), DataFolder, error);
    EXPECT_TRUE(books.has_value()) << error.toStdString();
    DeskWindow window(host, *books);
    window.show();
    QString text = "nothing\n"_s;
    {
        Reader reader(text);
        AlgoBatchImportParamSetting* dialog = window.importPage()->dialog();
        dialog->CreateStrategyInitWidget(AlgoTradeLogicNew::GetInstance()->GetStrategy(strategy));
        window.findChild<SolveyAccountComboBox*>("combx_account"_s)->SetCurTradingAccount(account);
        window.importPage()->frame()->importFile(file);
        auto* confirm = window.findChild<QAbstractButton*>("btn_ok"_s);
        confirm->click();
    }
    return text;
}

QString strategyOf(const QString& sample)
{
    const QString name = sample.section(QLatin1Char('/'), -1).section(QLatin1Char('.'), 0, 0);
    return name.section(QLatin1Char('-'), 0, name.startsWith("G-"_s) ? 1 : 0);
}

QString accountOf(const QString& strategy)
{
    const bool isCredit = strategy.endsWith(QLatin1Char('7'));
    const bool isFutures = strategy.startsWith("G-"_s) || strategy == "AITWAP5"_s;
    return isCredit ? "80020001"_s : isFutures ? "80030001"_s : "80010001"_s;
}

QStringList samples(const char* folder)
{
    QStringList files;
    const QDir dir(QStringLiteral(ALGO_PROJECT_DIR "/") + QString::fromLatin1(folder));
    for (const QString& name : dir.entryList({"*.csv"_s, "*.xls*"_s, "*.ods"_s}, QDir::Files)) {
        files.append(dir.filePath(name));
    }
    return files;
}

} // namespace

/// An import waits for quotes: the files are shared out, so that parts run beside each other.
constexpr int Parts = 8;

class SameVerdict : public testing::TestWithParam<int> {
protected:
    /// What window and runner say, which must be the same.
    static QJsonObject judged(const QString& file)
    {
        const QString strategy = strategyOf(file);
        const QJsonObject creation = created(file, strategy, accountOf(strategy));
        EXPECT_EQ(shown(creation).toStdString(), byWindow(file, strategy, accountOf(strategy)).toStdString())
            << file.toStdString();
        return creation;
    }

    static QStringList partOf(const QStringList& files)
    {
        QStringList part;
        for (int i = GetParam(); i < files.size(); i += Parts) {
            part.append(files.at(i));
        }
        return part;
    }
};

INSTANTIATE_TEST_SUITE_P(Parts, SameVerdict, testing::Range(0, Parts));

/// On the morning of the day that their rows name.
TEST_P(SameVerdict, OnEverySampleAndGoodOnesPassWithoutAQuestion)
{
    const DeskClock monday("2026-11-23 09:00:00");
    const QStringList good = samples("samples");
    EXPECT_GT(good.size(), 40);
    for (const QString& file : partOf(good)) {
        EXPECT_TRUE(rulesOf(judged(file)).isEmpty()) << file.toStdString();
    }
    for (const QString& file : partOf(samples("samples/faulty"))) {
        judged(file);
    }
}

/// The end of a row may be past, its day closed: nothing is worse than a warning, and nothing is said but of
/// the time.
TEST_P(SameVerdict, OnNoOtherDayHasASampleAnError)
{
    for (const char* now : {"2026-11-23 16:00:00", "2026-11-28 11:00:00", "2031-05-01 03:00:00"}) {
        const DeskClock clock(now);
        for (const QString& file : partOf(samples("samples"))) {
            const QString strategy = strategyOf(file);
            for (const QJsonObject& line : linesOf(created(file, strategy, accountOf(strategy)))) {
                const QString rule = line["rule"_s].toString();
                EXPECT_TRUE(rule.startsWith("time."_s) || rule == "endBeforeStart"_s)
                    << file.toStdString() << " " << now << " " << rule.toStdString();
                for (const QJsonValue& fault : line["faults"_s].toArray()) {
                    EXPECT_EQ("warning", fault.toObject()["severity"_s].toString().toStdString());
                }
            }
        }
    }
}

/// The harm of each file, by the rule that finds it.
const QMap<QString, QString>& harms()
{
    static const QMap<QString, QString> list = {{"AITWAP-share-na.csv"_s, "number.invalid"_s},
                                                {"AITWAP-share-percent.csv"_s, "number.invalid"_s},
                                                {"AITWAP-share-words.csv"_s, "number.invalid"_s},
                                                {"AITWAP-share-fullwidth.csv"_s, "number.invalid"_s},
                                                {"AITWAP-share-150.csv"_s, "number.percent"_s},
                                                {"AITWAP-share-negative.csv"_s, "number.percent"_s},
                                                {"AITWAP-share-fraction.csv"_s, "share.small"_s},
                                                {"AITWAP-least-words.csv"_s, "number.invalid"_s},
                                                {"AITWAP-lost-code.csv"_s, "row.code"_s},
                                                {"AITWAP-start-is-end.csv"_s, "time.none"_s},
                                                {"AITWAP-past.csv"_s, "time.ended"_s},
                                                {"AITWAP-years-ahead.csv"_s, "time.far"_s},
                                                {"AITWAP-after-hours.csv"_s, "time.hours"_s},
                                                {"AITWAP-holiday.csv"_s, "time.closed"_s},
                                                {"AITWAP-quantity-twice.csv"_s, "title.repeated"_s},
                                                {"AITWAP-alias-beside.csv"_s, "title.second"_s},
                                                {"AITWAP-price-title-1.csv"_s, "title.near"_s},
                                                {"AITWAP-price-title-2.csv"_s, "title.near"_s},
                                                {"AITWAP-price-title-3.csv"_s, "title.near"_s},
                                                {"AITWAP-other-name.csv"_s, "name.differs"_s},
                                                {"AITWAP-odd-lot.csv"_s, "quantity.lot"_s},
                                                {"AITWAP-negative-quantity.csv"_s, "negative"_s},
                                                {"AITWAP-negative-limit.csv"_s, "negative"_s},
                                                {"AITWAP-grouped-point.csv"_s, "number.grouping"_s},
                                                {"AITWAP-grouped-comma.csv"_s, "number.invalid"_s},
                                                {"AITWAP-shares-unit.csv"_s, "number.invalid"_s},
                                                {"AITWAP-ten-thousands.csv"_s, "number.invalid"_s},
                                                {"AITWAP-yuan-sign.csv"_s, "number.invalid"_s},
                                                {"AITWAP-bracketed.csv"_s, "number.invalid"_s},
                                                {"AITWAP-money-as-quantity.csv"_s, "quantity.money"_s},
                                                {"AITWAP-same-order-twice.csv"_s, "row.repeated"_s},
                                                {"AITWAP-total-row.csv"_s, "row.total"_s},
                                                {"AITWAP-total-in-notes.csv"_s, "row.total"_s},
                                                {"AITWAP-header-again.csv"_s, "row.header"_s},
                                                {"AITWAP-refused-rows.csv"_s, "rows.missing"_s},
                                                {"TWAP-of-another-strategy.csv"_s, "title.strategy"_s},
                                                {"AITWAPPLUS-of-another-strategy.csv"_s, "title.strategy"_s},
                                                {"AINHG-rate-178.csv"_s, "price.rate"_s},
                                                {"AINHG-rate-fraction.csv"_s, "price.rate"_s},
                                                {"AITWAP7-ten-thousands.csv"_s, "amount.small"_s},
                                                {"G-TWAP-direction.csv"_s, "direction.empty"_s},
                                                {"G-TWAP-interval.csv"_s, "number.below"_s},
                                                {"AIPAIR-one-side.csv"_s, "pair.side"_s},
                                                {"AIPAIR-half.csv"_s, "pair.half"_s},
                                                {"AILOCK-one-side.csv"_s, "pair.side"_s},
                                                {"AITWAP-formula.xlsx"_s, "formula.uncalculated"_s},
                                                {"AITWAP-percent-cell.xlsx"_s, "number.shown"_s},
                                                {"AITWAP-rounded-cell.xlsx"_s, "number.shown"_s},
                                                {"AITWAP-hands-cell.xlsx"_s, "number.shown"_s},
                                                {"AITWAP-merged-code.xlsx"_s, "row.code"_s},
                                                {"AITWAP-merged-limit.xlsx"_s, "merged.empty"_s},
                                                {"AITWAP-merged-share.xlsx"_s, "merged.empty"_s},
                                                {"AITWAP-merged-quantity.xlsx"_s, "merged.empty"_s},
                                                {"AITWAP-active-sheet.xlsx"_s, "sheet.active"_s},
                                                {"AITWAP-two-sheets.xlsx"_s, "sheet.other"_s},
                                                {"AITWAP-hidden-row.xlsx"_s, "row.hidden"_s},
                                                {"AITWAP-struck-row.xlsx"_s, "row.struck"_s},
                                                {"AITWAP-date-only.xlsx"_s, "time.midnight"_s},
                                                {"AITWAP-price-word.csv"_s, "title.near"_s},
                                                {"AITWAP-price-beside.csv"_s, "title.second"_s},
                                                {"AITWAP-nameless-limit.csv"_s, "title.empty"_s},
                                                {"AITWAP-amount-beside.csv"_s, "title.ignored"_s},
                                                {"AITWAP-lunch.csv"_s, "time.hours"_s},
                                                {"AITWAP-two-days.csv"_s, "time.days"_s},
                                                {"AITWAP-seconds.csv"_s, "time.short"_s},
                                                {"AITWAP-month-ahead.csv"_s, "time.far"_s},
                                                {"AITWAP-other-account.csv"_s, "account.other"_s},
                                                {"AITWAP-same-order-spelt-otherwise.csv"_s, "row.repeated"_s},
                                                {"AITWAP-code-and-quantity-lost.csv"_s, "row.code"_s},
                                                {"AITWAP-end-before-start.csv"_s, "endBeforeStart"_s},
                                                {"AITWAP-zero-limit.csv"_s, "zeroLimit"_s},
                                                {"AITWAP-zero-quantity.csv"_s, "noQuantity"_s},
                                                {"AITWAP-both-sides.csv"_s, "bothSides"_s},
                                                {"AITWAP-limit-ten-times.csv"_s, "priceDistance"_s},
                                                {"AITWAP-exponent.csv"_s, "number.exponent"_s},
                                                {"AIPAIR-other-times.csv"_s, "pair.times"_s},
                                                {"AIPAIR-blank-in-number.csv"_s, "pair.half"_s},
                                                {"AIPAIR-ratio-zero.csv"_s, "number.below"_s},
                                                {"AINHG-rate-ten-times.csv"_s, "price.rate"_s},
                                                {"AITWAP-percent-cell.ods"_s, "number.shown"_s},
                                                {"AITWAP-merged-limit.ods"_s, "merged.empty"_s},
                                                {"AITWAP-filtered-row.ods"_s, "row.hidden"_s},
                                                {"AITWAP-two-sheets.ods"_s, "sheet.other"_s},
                                                {"AITWAP-formula.ods"_s, "formula.uncalculated"_s},
                                                {"AITWAP-formula-code.xlsx"_s, "formula.uncalculated"_s},
                                                {"AITWAP-formula-row.xlsx"_s, "formula.uncalculated"_s},
                                                {"AITWAP-merged-order.xlsx"_s, "row.code"_s},
                                                {"AINHG-percent-rate.xlsx"_s, "number.shown"_s}};
    return list;
}

TEST_P(SameVerdict, OnEveryHarmfulFile)
{
    const DeskClock monday("2026-11-23 09:00:00");
    const QStringList files = samples("tests/data/harmful");
    EXPECT_EQ(harms().size(), files.size());
    for (const QString& file : partOf(files)) {
        const QString harm = harms().value(file.section(QLatin1Char('/'), -1));
        const QJsonObject creation = judged(file);
        EXPECT_TRUE(rulesOf(creation).contains(harm))
            << file.toStdString() << ": " << harm.toStdString() << " is not among\n"
            << shown(creation).toStdString();
        EXPECT_TRUE(creation["batch"_s].isNull()) << file.toStdString() << " was created";
    }
}
