#include "desk/models/PagedModel.h"

#include "tests/support/Text.h"

#include <gtest/gtest.h>

namespace {

constexpr int PageSize = 500;

class Numbers : public PagedModel<int> {
public:
    Numbers() : PagedModel({{"数"_s, true}}) {}

protected:
    Cell cellOf(const int& number, int) const override { return {QString::number(number)}; }
};

/// The numbers below `end`, from a provider that counts how often it was asked.
class PagedModelTest : public testing::Test {
protected:
    PagedModelTest()
    {
        model.setPages([this](const int* last, int count) { return page(last, count); });
    }

    Outcome<QList<int>> page(const int* last, int count)
    {
        ++asked;
        QList<int> numbers;
        for (int next = last == nullptr ? 0 : *last + 1; next < end && numbers.size() < count; ++next) {
            numbers.append(next);
        }
        return error.isEmpty() ? Outcome<QList<int>>{numbers, {}} : Outcome<QList<int>>{{}, error};
    }

    int end = 1200;
    int asked = 0;
    QString error;
    Numbers model;
};

TEST_F(PagedModelTest, ReadsNoMoreThanAPageUntilItIsAskedFor)
{
    EXPECT_EQ(model.rowCount(), PageSize);
    EXPECT_EQ(asked, 1);
    model.fetchMore({});
    EXPECT_EQ(model.rowCount(), 2 * PageSize);
    EXPECT_TRUE(model.canFetchMore({}));
    model.fetchMore({});
    EXPECT_EQ(model.rowCount(), 1200);
    EXPECT_FALSE(model.canFetchMore({}));
    model.fetchMore({});
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(model.records().last(), 1199);
}

TEST_F(PagedModelTest, AfterAFullLastPageAsksOnceMore)
{
    end = PageSize;
    model.reload();
    EXPECT_TRUE(model.canFetchMore({}));
    model.fetchMore({});
    EXPECT_FALSE(model.canFetchMore({}));
    EXPECT_EQ(model.rowCount(), PageSize);
}

TEST_F(PagedModelTest, ReloadsAsManyAsAreShownAndKeepsThemWhereTheirNumberStays)
{
    model.fetchMore({});
    int resets = 0;
    QObject::connect(&model, &QAbstractItemModel::modelReset, [&resets] { ++resets; });
    const QPersistentModelIndex chosen = model.index(700, 0);
    model.reload();
    EXPECT_EQ(model.rowCount(), 2 * PageSize);
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(chosen.data().toString(), "700"_s);
    end = 3;
    model.reload();
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(resets, 1);
}

TEST_F(PagedModelTest, TellsWhyFurtherRowsCannotBeFetchedAndKeepsThoseThatItHas)
{
    QString told;
    QObject::connect(&model, &ListModel::failed, [&told](const QString& text) { told = text; });
    error = "坏了"_s;
    model.fetchMore({});
    EXPECT_EQ(told, "坏了"_s);
    EXPECT_EQ(model.error(), "坏了"_s);
    EXPECT_EQ(model.rowCount(), PageSize);
    EXPECT_FALSE(model.canFetchMore({})) << "a view would ask for ever";
    model.reload();
    EXPECT_EQ(model.rowCount(), PageSize) << "what is on screen stays there";
    EXPECT_EQ(model.error(), "坏了"_s);
    error.clear();
    model.reload();
    EXPECT_EQ(model.error(), QString());
    EXPECT_TRUE(model.canFetchMore({}));
}

TEST(PagesOfTest, CutsAListThatIsReadWholeIntoPages)
{
    int reads = 0;
    const Pages<int> pages = pagesOf<int>([&reads]() -> Outcome<QList<int>> {
        ++reads;
        return {{1, 2, 3}, {}};
    });
    QList<int> page = pages(nullptr, 2).value;
    EXPECT_EQ(page, QList<int>({1, 2}));
    page = pages(&page.last(), 2).value;
    EXPECT_EQ(page, QList<int>{3});
    EXPECT_EQ(reads, 1);
    EXPECT_EQ(pages(nullptr, 5).value.size(), 3);
    EXPECT_EQ(reads, 2);
}

} // namespace
