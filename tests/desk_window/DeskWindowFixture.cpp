#include "tests/desk_window/DeskWindowFixture.h"

#include "desk/window/VerdictDialog.h"
#include "tests/support/Eventually.h"

#include <QCheckBox>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QTextEdit>

namespace {

constexpr int PollMs = 20;

} // namespace

DeskWindowFixture::~DeskWindowFixture()
{
    EXPECT_EQ(mAwaited, 0) << "a window that was waited for never came up";
}

void DeskWindowFixture::open()
{
    if (!books.ledger && books.ledgerError.isEmpty()) {
        books.address = ledger::Address::ofFile(ledger::Ledger::pathIn(home.path()));
        const auto opened = ledger::Ledger::open(books.address);
        ASSERT_TRUE(opened.ok()) << opened.error.toStdString();
        books.ledger = opened.value;
        books.home = home.path();
    }
    if (!books.clock) {
        // In the morning of the day that the rows of the small market name, whenever the test runs.
        const QDateTime morning(QDate(2024, 3, 5), QTime(9, 0), Qt::OffsetFromUTC, 8 * 3600);
        books.clock = [morning] { return morning; };
    }
    EmbeddedHost::Options options;
    options.home = home.path();
    host = std::make_unique<EmbeddedHost>(ReferenceData(tables), options);
    window = std::make_unique<DeskWindow>(*host, books);
    auto* discarding = new QTimer(window.get());
    QObject::connect(discarding, &QTimer::timeout, window.get(), [this] { answerDiscard(); });
    discarding->start(PollMs);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), PatienceMs));
}

void DeskWindowFixture::closeWindow()
{
    window->close();
    window.reset();
    host.reset();
}

QString DeskWindowFixture::writeFile(const QList<QStringList>& rows, const QString& name)
{
    return writeTable(QList<QStringList>{small_market::ordinaryHeader()} + rows, name);
}

QString DeskWindowFixture::writeTable(const QList<QStringList>& rows, const QString& name)
{
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    for (const QStringList& cells : rows) {
        file.write(cells.join(QLatin1Char(',')).toUtf8() + "\r\n");
    }
    return file.fileName();
}

QStringList DeskWindowFixture::row(const QString& code, const QString& quantity)
{
    return small_market::ordinaryRow(code, "SH"_s, quantity);
}

void DeskWindowFixture::drop(const QStringList& paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths) {
        urls.append(QUrl::fromLocalFile(path));
    }
    data.setUrls(urls);
    const QPoint middle = window->rect().center();
    QDragEnterEvent enter(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent event(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &event);
    window->activateWindow(); // off screen, a closed message box does not hand the activity back
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), PatienceMs));
}

void DeskWindowFixture::whenModal(const std::function<void(QWidget&)>& act)
{
    ++mAwaited;
    auto* timer = new QTimer(window.get());
    auto waited = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, timer, [this, timer, waited, act] {
        QWidget* modal = QApplication::activeModalWidget();
        *waited += PollMs;
        if (modal && modal->isVisible() && !answerDiscard()) {
            timer->stop();
            timer->deleteLater();
            --mAwaited;
            act(*modal);
        } else if (*waited > PatienceMs) {
            timer->stop();
        }
    });
    timer->start(PollMs);
}

bool DeskWindowFixture::answerDiscard()
{
    QWidget* modal = QApplication::activeModalWidget();
    if (!discards || !modal || modal->objectName() != "question_discard"_s) {
        return false;
    }
    modal->findChild<QAbstractButton*>("button_discard"_s)->click();
    return true;
}

void DeskWindowFixture::answer(const QString& button)
{
    whenModal([button](QWidget& modal) {
        auto* found = modal.findChild<QAbstractButton*>(button);
        ASSERT_NE(found, nullptr) << button.toStdString();
        QTest::mouseClick(found, Qt::LeftButton);
    });
}

void DeskWindowFixture::pressConfirm()
{
    auto* button = child<QAbstractButton>("btn_ok");
    ASSERT_NE(button, nullptr);
    agreeingTo([button] { QTest::mouseClick(button, Qt::LeftButton); });
}

void DeskWindowFixture::agreeingTo(const std::function<void()>& act)
{
    QTimer agreeing;
    QObject::connect(&agreeing, &QTimer::timeout, [] {
        auto* verdict = qobject_cast<VerdictDialog*>(QApplication::activeModalWidget());
        auto* create = verdict ? verdict->findChild<QAbstractButton*>("button_create"_s) : nullptr;
        if (verdict != nullptr && create == nullptr) {
            auto* refusals = verdict->findChild<QTextEdit*>("findings_error"_s);
            ADD_FAILURE() << "refused: "
                          << (refusals ? refusals->toPlainText().toStdString() : std::string());
            verdict->reject();
        }
        if (create == nullptr) {
            return;
        }
        for (QCheckBox* question : verdict->findChildren<QCheckBox*>()) {
            question->setChecked(true);
        }
        create->click();
    });
    if (mAwaited == 0) {
        agreeing.start(PollMs);
    }
    act();
    window->activateWindow(); // off screen, a closed dialog does not hand the activity back
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get(), PatienceMs));
}

QStringList DeskWindowFixture::shown(const FilteredTable& table, int column)
{
    QStringList cells;
    for (const QStringList& cellsOfRow : table.shownRows().mid(1)) {
        cells.append(cellsOfRow.value(column));
    }
    return cells;
}
