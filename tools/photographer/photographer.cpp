// Walks through the desk as a trader would, and takes a picture of every step.
//
//     photographer light|dark FOLDER ALGODESK

#include "desk/demo/Demo.h"
#include "desk/window/BatchesPage.h"
#include "desk/window/DeskApplication.h"
#include "desk/window/DeskWindow.h"
#include "desk/window/FileGrid.h"
#include "desk/window/FileMending.h"
#include "desk/window/FilteredTable.h"
#include "desk/window/GatewayPage.h"
#include "desk/window/ImportPage.h"
#include "desk/window/ProblemFacets.h"
#include "desk/window/ProblemsPanel.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/reference_data/ReferenceFolder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QSet>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

const QString Root = QStringLiteral(SOURCE_ROOT "/");
const QString Orders = QStringLiteral("AITWAP.csv");
const QSize WindowSize(1280, 800);
constexpr int SettleMs = 300; // the fingerprint of a file comes from a thread
constexpr int DemoMs = 14000; // until some orders are filled and others are not
constexpr double DemoPace = 600;
constexpr int PollMs = 50;
constexpr int DarkPercent = 150;
constexpr int MostColours = 256;
constexpr int Common = 4000;   // pixels of a colour that is drawn as it is, such as a background
constexpr qreal PointSize = 9; // off screen there is no system that would say

/// The amount that must be typed once more: small, so that a sample reaches it.
QList<ledger::LimitScope> limits()
{
    ledger::LimitScope all;
    all.limits.confirmAmount = 100000;
    return {all};
}

void settle(int milliseconds = SettleMs)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void setFontSize()
{
    QFont font = QApplication::font();
    font.setPointSizeF(PointSize);
    QApplication::setFont(font);
}

/// The commonest colours, none of them next to another one, so that a rare colour keeps its place beside the
/// shades of common ones.
QVector<QRgb> palette(const QImage& image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    QVector<QRgb> colours = counts.keys().toVector();
    std::sort(colours.begin(), colours.end(), [&counts](QRgb a, QRgb b) {
        return std::make_pair(counts.value(a), a) > std::make_pair(counts.value(b), b);
    });
    QSet<QRgb> taken;
    QVector<QRgb> chosen;
    for (const QRgb colour : qAsConst(colours)) {
        const QRgb neighbourhood = colour & 0xf0f0f0;
        if (chosen.size() < MostColours &&
            (counts.value(colour) > Common || !taken.contains(neighbourhood))) {
            taken.insert(neighbourhood);
            chosen.append(colour);
        }
    }
    return chosen;
}

/// Half as large a file.
QImage withFewColours(const QImage& image)
{
    return image.convertToFormat(QImage::Format_Indexed8, palette(image), Qt::AvoidDither);
}

/// A file of samples/.
QByteArray sample(const QString& name)
{
    QFile file(Root + QStringLiteral("samples/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class Walk {
public:
    Walk(DeskWindow& window, const QString& skin, const QString& pictures)
        : mWindow(window), mSkin(skin), mPictures(pictures)
    {
    }

    bool go();
    /// Of a window on a demonstration.
    bool goThroughDemo();

private:
    enum class In { Light, BothSkins };

    void importFaults();
    void mendInTheWindow();
    void createBatch();
    void look();
    void importRevision();
    void takeBatchBack();
    void importSuspectFile();

    void take(const QString& name, In skins);
    void whenModal(const std::function<void(QWidget&)>& act);
    void import(const QString& name, const QByteArray& bytes);
    static void press(const QWidget& in, const QString& button);

    DeskWindow& mWindow;
    const QString mSkin;
    const QDir mPictures;
    bool mSaved = true;
};

bool Walk::go()
{
    mWindow.setSkin(mSkin);
    take(QStringLiteral("01-start"), In::Light);
    importFaults();
    mendInTheWindow();
    createBatch();
    look();
    importRevision();
    takeBatchBack();
    importSuspectFile();
    return mSaved;
}

bool Walk::goThroughDemo()
{
    mWindow.setSkin(mSkin);
    mWindow.showPage(DeskWindow::InstancesPageIndex);
    settle(DemoMs);
    take(QStringLiteral("00-demo"), In::Light);
    mWindow.showPage(DeskWindow::GatewayPageIndex);
    settle();
    FilteredTable* log = mWindow.gatewayPage()->table();
    log->filter()->setText(QStringLiteral("NewOrder"));
    log->setCurrentRow(log->view()->model()->rowCount() - 1);
    log->filter()->clear();
    take(QStringLiteral("12-gateway"), In::Light);
    return mSaved;
}

void Walk::importFaults()
{
    whenModal([this](QWidget& box) {
        take(QStringLiteral("02-row-errors"), In::Light);
        press(box, QStringLiteral("button_ok"));
    });
    import(QStringLiteral("mixed.csv"), sample(QStringLiteral("faulty/AITWAP-mixed.csv")));
    mWindow.importPage()->problems()->goToNext();
    take(QStringLiteral("03-problems"), In::BothSkins);
}

/// The rows that were refused, from the first problem to a batch without one.
void Walk::mendInTheWindow()
{
    ImportPage& page = *mWindow.importPage();
    page.problems()->facets()->toggleErrors();
    page.problems()->goToNext();
    page.problems()->goToPlace();
    take(QStringLiteral("13-file"), In::BothSkins);
    QAbstractItemModel* cells = page.grid()->view()->model();
    cells->setData(page.grid()->view()->currentIndex(), QStringLiteral("600000"), Qt::EditRole);
    page.problems()->goToNext();
    page.problems()->goToPlace();
    whenModal([this](QWidget& question) {
        question.findChild<QLineEdit*>(QStringLiteral("edit_after"))->setText(QStringLiteral("neutral"));
        take(QStringLiteral("14-replace"), In::Light);
        press(question, QStringLiteral("button_replaceAll"));
    });
    page.grid()->replaceInColumn();
    page.problems()->leaveOutFaulty();
    take(QStringLiteral("15-left-out"), In::Light);
    page.mending()->catchUp();
    page.switchView();
    take(QStringLiteral("16-mended"), In::Light);
    page.problems()->facets()->clear();
}

void Walk::createBatch()
{
    import(QStringLiteral("orders.csv"), sample(Orders));
    whenModal([this](QWidget& verdict) {
        auto* amount = verdict.findChild<QLineEdit*>(QStringLiteral("edit_amount"));
        for (const QLabel* label : verdict.findChildren<QLabel*>()) {
            if (label->text().startsWith(QStringLiteral("金额较大"))) {
                amount->setText(label->text().section(QStringLiteral("："), -1));
            }
        }
        for (QCheckBox* question : verdict.findChildren<QCheckBox*>()) {
            question->setChecked(true);
        }
        take(QStringLiteral("04-guard"), In::BothSkins);
        press(verdict, QStringLiteral("button_create"));
    });
    mWindow.confirm();
    take(QStringLiteral("05-created"), In::Light);
}

void Walk::look()
{
    mWindow.showPage(DeskWindow::InstancesPageIndex);
    take(QStringLiteral("06-instances"), In::BothSkins);
    mWindow.showPage(DeskWindow::QuotesPageIndex);
    take(QStringLiteral("09-quotes"), In::BothSkins);
    mWindow.showPage(DeskWindow::ImportPageIndex);
}

/// The same file with a row less and some cells changed.
void Walk::importRevision()
{
    QList<QByteArray> lines = sample(Orders).split('\n');
    for (int i = lines.size() - 1; i >= 0; --i) {
        if (lines.at(i).startsWith("688001")) {
            lines.removeAt(i);
        } else if (lines.at(i).startsWith("000001")) {
            lines[i].replace(",2500,", ",2600,");
        } else if (lines.at(i).startsWith("430047")) {
            lines[i].replace("neutral", "aggressive");
        }
    }
    import(QStringLiteral("orders.csv"), lines.join('\n'));
    take(QStringLiteral("10-revision"), In::Light);
}

void Walk::takeBatchBack()
{
    mWindow.showPage(DeskWindow::BatchesPageIndex);
    mWindow.batchesPage()->table()->setCurrentRow(0);
    whenModal([this](QWidget& question) {
        take(QStringLiteral("07-undo"), In::Light);
        press(question, QStringLiteral("button_yes"));
    });
    mWindow.batchesPage()->undo();
    take(QStringLiteral("08-batches"), In::Light);
    mWindow.showPage(DeskWindow::ImportPageIndex);
}

/// A title with a wrong character, a code without its zeros, a number in full-width digits, an order without
/// its code.
void Walk::importSuspectFile()
{
    QByteArray orders = sample(Orders);
    orders.replace("实例备注", "实例备住");
    orders.replace("\n000001,", "\n1,");
    orders.replace(",1000,", ",１０００,");
    orders.replace("\n430047,京样生物,", "\n,,");
    import(QStringLiteral("suspect.csv"), orders);
    take(QStringLiteral("11-file-check"), In::Light);
}

/// The window, and a modal one above it in its middle, since off screen there is no desktop to show both.
void Walk::take(const QString& name, In skins)
{
    const bool dark = mSkin != QLatin1String("light");
    if (dark && skins == In::Light) {
        return;
    }
    settle();
    QPixmap picture = mWindow.grab();
    if (QWidget* modal = QApplication::activeModalWidget()) {
        const QPoint place = mWindow.rect().center() - modal->rect().center();
        QPainter painter(&picture);
        painter.drawPixmap(place, modal->grab());
        painter.setPen(QColor(0x80, 0x88, 0x90));
        painter.drawRect(QRect(place, modal->size()).adjusted(-1, -1, 0, 0));
    }
    const QString file =
        name + QLatin1Char('-') + mSkin + (dark ? QStringLiteral("-%1").arg(DarkPercent) : QString());
    const QString path = mPictures.filePath(file + QStringLiteral(".png"));
    mSaved = withFewColours(picture.toImage()).save(path, "PNG", 0) && mSaved;
}

void Walk::whenModal(const std::function<void(QWidget&)>& act)
{
    auto* timer = new QTimer(&mWindow);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && modal->isVisible()) {
            timer->stop();
            timer->deleteLater();
            act(*modal);
        }
    });
    timer->start(PollMs);
}

/// By its bare name, so that the pictures show no folder of the machine that they were taken on.
void Walk::import(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    mSaved = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && mSaved;
    file.close();
    if (mWindow.importPage()->hasOpenBatch()) {
        whenModal([](QWidget& question) { press(question, QStringLiteral("button_discard")); });
    }
    mWindow.importPage()->frame()->importFile(name);
}

void Walk::press(const QWidget& in, const QString& button)
{
    in.findChild<QAbstractButton*>(button)->click();
}

int fail(const QString& error)
{
    std::fprintf(stderr, "%s\n", error.toUtf8().constData());
    return 1;
}

/// A window on a home and its ledger, for as long as `walk` takes.
QString show(const QString& home, const std::function<bool(DeskWindow&)>& walk)
{
    QString error;
    auto tables = readReferenceFolder(Root + QStringLiteral("reference_data"), error);
    if (!tables) {
        return error;
    }
    EmbeddedHost::Options options;
    options.home = home;
    EmbeddedHost host(ReferenceData(std::move(*tables)), options);
    const Outcome<std::shared_ptr<ledger::Ledger>> opened =
        ledger::Ledger::open(ledger::Address::ofFile(ledger::Ledger::pathIn(home)));
    if (!opened.ok()) {
        return opened.error;
    }
    DeskBooks books;
    books.ledger = opened.value;
    books.home = home;
    books.desk.limits = limits();
    DeskWindow window(host, books);
    window.resize(WindowSize);
    window.show();
    return walk(window) ? QString() : QStringLiteral("a picture could not be saved");
}

QString showDesk(const QString& skin, const QString& pictures)
{
    const QTemporaryDir home;
    QDir::setCurrent(home.path());
    return show(home.path(), [&](DeskWindow& window) { return Walk(window, skin, pictures).go(); });
}

QString showDemo(const QString& skin, const QString& pictures, const QString& algodesk)
{
    demo::Options options;
    options.program = algodesk;
    options.share = QFileInfo(algodesk).absolutePath() + QStringLiteral("/../share/algodesk");
    options.pace = DemoPace;
    QString error;
    const std::unique_ptr<demo::Stage> stage = demo::openStage(options, error);
    return stage ? show(stage->home(),
                        [&](DeskWindow& window) { return Walk(window, skin, pictures).goThroughDemo(); })
                 : error;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    desk_application::prepare();
    QApplication::setCursorFlashTime(0);
    setFontSize();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4) {
        return fail(QStringLiteral("photographer light|dark FOLDER ALGODESK"));
    }
    const QString& skin = arguments.at(1);
    const QString pictures = QDir(arguments.at(2)).absolutePath();
    QString error = showDesk(skin, pictures);
    if (error.isEmpty() && skin == QLatin1String("light")) {
        error = showDemo(skin, pictures, arguments.at(3));
    }
    return error.isEmpty() ? 0 : fail(error);
}
