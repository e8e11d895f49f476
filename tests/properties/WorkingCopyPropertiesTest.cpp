#include "desk/working_copy/WorkingCopy.h"
#include "embedded_host/table_reader/TableReader.h"
#include "tests/properties/RandomImports.h"
#include "tests/support/Readings.h"

using working_copy::WorkingCopy;

/// A file that is mended on the desk, and the same file as a spreadsheet program would mend it.
class WorkingCopyProperties : public RandomImports {
protected:
    /// The rows of a file in another program: it knows no lines, and what is deleted is gone.
    struct Outside {
        QStringList cells;
        bool isDeleted = false;
    };

    void start()
    {
        openRandomStrategy();
        const QString path = writeCsv(randomTable(2 + below(12)).sheet.rows());
        const table::Table table = table_reader::readTable(path);
        ASSERT_EQ(table.error, QString());
        mCopy = WorkingCopy(table);
        mOutside.clear();
        for (const QStringList& row : table.rows) {
            mOutside.append({row, false});
        }
    }

    QString someText()
    {
        return oneOf(QStringList{"600000"_s, "60000"_s, "SH"_s, "1"_s, "2"_s, "1000"_s, "激进"_s, "x,y"_s,
                                 "多\n行"_s, " "_s, QString()});
    }

    void editOnce()
    {
        const int row = 1 + below(mOutside.size() - 1);
        const int line = mCopy.rows().at(row).line;
        const int column = below(mOutside.first().cells.size());
        switch (below(5)) {
        case 0:
            type(row, line, column, someText());
            break;
        case 1:
            mCopy.leaveOut({line});
            mOutside[row].isDeleted = true;
            break;
        case 2:
            mCopy.takeIn({line});
            mOutside[row].isDeleted = false;
            break;
        case 3:
            replace(column, mOutside.at(row).cells.value(column), someText());
            break;
        case 4:
            mCopy.addRows({mOutside.at(row).cells});
            mOutside.append({mOutside.at(row).cells, false});
            break;
        }
    }

    void type(int row, int line, int column, const QString& text)
    {
        mCopy.setCell(line, column, text);
        put(mOutside[row].cells, column, text);
    }

    void replace(int column, const QString& before, const QString& after)
    {
        mCopy.replaceInColumn(column, before, after);
        for (int row = 1; row < mOutside.size(); ++row) {
            QStringList& cells = mOutside[row].cells;
            if (!mOutside.at(row).isDeleted && column < cells.size() && cells.at(column) == before) {
                cells[column] = after;
            }
        }
    }

    static void put(QStringList& cells, int column, const QString& text)
    {
        while (cells.size() <= column && !text.isEmpty()) {
            cells.append(QString());
        }
        if (column < cells.size()) {
            cells[column] = text;
        }
    }

    /// Written, and read again, as any file is.
    table::Table mendedOutside()
    {
        QList<QStringList> rows;
        mLineOfRow.clear();
        for (int row = 0; row < mOutside.size(); ++row) {
            if (!mOutside.at(row).isDeleted) {
                rows.append(mOutside.at(row).cells);
                mLineOfRow.append(mCopy.rows().at(row).line);
            }
        }
        return table_reader::readTable(writeCsv(rows));
    }

    import::Reading read(const table::Table& table) {
        return import::readRows(readings::parsed(dialog->getStrategy()), table,
                                {accounts().GetCurTradingAccount(), accounts().GetCurAccountAssetProp()},
                                import::dateTimeFormatOf(QStringLiteral("list.csv")));
}

/// Line, column, rule, cell and arguments.
static QStringList
told(const table::Faults& faults, const std::function<int(const table::Fault&)>& line)
{
    QStringList texts;
    for (const table::Fault& fault : faults) {
        texts.append(QStringLiteral("%1|%2|%3|%4|%5")
                         .arg(QString::number(line(fault)), fault.column, fault.rule, fault.cell,
                              fault.arguments.join(QLatin1Char('|'))));
    }
    return texts;
}

WorkingCopy mCopy;
QList<Outside> mOutside;
QList<int> mLineOfRow; ///< of the file mended outside: where its rows stand in the working copy
}
;

TEST_F(WorkingCopyProperties, EditsGiveWhatTheSameFileMendedOutsideGives)
{
    int edited = 0;
    int faulty = 0;
    for (unsigned n = 900; n < 960; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        start();
        for (int i = below(12); i >= 0; --i) {
            editOnce();
        }
        const table::Table outside = mendedOutside();
        const import::Reading there = read(outside);
        const import::Reading here = read(mCopy.edited());
        EXPECT_EQ(here.instances, there.instances);
        EXPECT_EQ(here.records, there.records);
        EXPECT_EQ(here.end.has_value(), there.end.has_value());
        EXPECT_EQ(told(here.faults, [](const table::Fault& fault) { return fault.line; }),
                  told(there.faults, [&](const table::Fault& fault) {
                      return mLineOfRow.value(outside.lines.indexOf(fault.line));
                  }));
        edited += mCopy.isEdited() ? 1 : 0;
        faulty += here.faults.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(edited, 40) << "the edits were of no effect";
    EXPECT_GT(faulty, 20) << "no table had a fault";
}

TEST_F(WorkingCopyProperties, UndoneToTheLastItIsTheFileAgainAndRedoneTheSameAsBefore)
{
    for (unsigned n = 960; n < 980; ++n) {
        SCOPED_TRACE("seed " + std::to_string(n));
        seed(n);
        start();
        const QList<QStringList> first = mCopy.edited().rows;
        for (int i = below(12); i >= 0; --i) {
            editOnce();
        }
        const QList<QStringList> last = mCopy.edited().rows;
        const QList<int> lines = mCopy.edited().lines;
        while (mCopy.canUndo()) {
            mCopy.undo();
        }
        EXPECT_EQ(mCopy.edited().rows, first);
        while (mCopy.canRedo()) {
            mCopy.redo();
        }
        EXPECT_EQ(mCopy.edited().rows, last);
        EXPECT_EQ(mCopy.edited().lines, lines);
        const auto again = WorkingCopy::with(mCopy.original(), mCopy.toJson());
        EXPECT_EQ(again.error, QString());
        EXPECT_EQ(again.value.edited().rows, last);
    }
}
