#include "ui/models/PreviewRows.h"

#include "support/SystemSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

namespace lumeo {
namespace {

using testing::ElementsAre;

MediaItem photo(const std::string& path) {
    MediaItem item;
    item.sourceURL = FilePath(path);
    item.mediaType = MediaType::photo;
    return item;
}

std::vector<std::string> names(const PreviewRows& rows) {
    std::vector<std::string> list;
    for (int row = 0; row < rows.rowCount(); ++row) {
        list.push_back(rows.data(rows.index(row), PreviewRows::fileNameRole).toString().toStdString());
    }
    return list;
}

void setItems(PreviewRows& rows, std::vector<MediaItem> items) {
    rows.setItems(std::make_shared<const std::vector<MediaItem>>(std::move(items)));
}

bool finds(const char* text, std::string_view name) {
    return NameSearch(QString::fromUtf8(text)).finds(name);
}

TEST(NameSearchTest, IgnoresCaseInAnyScriptAndHowAccentsAreStored) {
    EXPECT_TRUE(finds("IMG", "img_0001.jpg"));
    EXPECT_TRUE(finds("img", "IMG_0001.jpg"));
    EXPECT_FALSE(finds("img", "photo.jpg"));
    EXPECT_TRUE(finds("", "photo.jpg"));

    EXPECT_TRUE(finds("été", "Vacances ÉTÉ.jpg"));
    EXPECT_TRUE(finds("été", "Vacances e\xCC\x81te\xCC\x81.jpg")); // accents apart, as some disks have it
    EXPECT_FALSE(finds("ete", "été.jpg"));
    EXPECT_TRUE(finds("МОРЕ", "Лето на море.jpg"));
    EXPECT_TRUE(finds("jpg", "Лето.JPG"));
    EXPECT_FALSE(finds("Лето", "summer.jpg"));
    EXPECT_TRUE(finds("0001", "bad\xFF_0001.jpg")); // not UTF-8
}

TEST(NameSearchTest, FindsCameraNamesAsWellAsTurkishOnes) {
    EXPECT_TRUE(finds("img", "IMG_0001.jpg"));
    EXPECT_TRUE(finds("istanbul", "İstanbul.jpg"));
    EXPECT_TRUE(finds("İSTANBUL", "istanbul.jpg"));
    EXPECT_TRUE(finds("ısparta", "ISPARTA.jpg"));
}

TEST(PreviewRowsTest, SearchesNamesOnlyAndKeepsTheCataloguesOrder) {
    PreviewRows rows;
    const QAbstractItemModelTester tester(&rows, QAbstractItemModelTester::FailureReportingMode::Fatal);
    setItems(rows, {photo("/b/img_2.jpg"), photo("/IMG/x.jpg"), photo("/a/IMG_1.jpg")});

    rows.setSearch(QStringLiteral("i"));
    rows.setSearch(QStringLiteral("img"));
    EXPECT_THAT(names(rows), ElementsAre("img_2.jpg", "IMG_1.jpg"));
    rows.setSearch(QStringLiteral("img_1"));
    EXPECT_THAT(names(rows), ElementsAre("IMG_1.jpg"));
    rows.setSearch(QStringLiteral("mg")); // neither longer nor shorter: hidden rows must come back
    EXPECT_THAT(names(rows), ElementsAre("img_2.jpg", "IMG_1.jpg"));
    rows.setSearch({});
    EXPECT_EQ(rows.rowCount(), 3);
}

TEST(PreviewRowsTest, FiltersTogetherWithTheSearch) {
    std::vector<MediaItem> items{photo("/a.jpg"), photo("/b.mov"), photo("/c.dng"), photo("/d.jpg")};
    items[0].exactDuplicateGroupID = Uuid();
    items[0].resolvedDate = codedEpoch;
    items[1].mediaType = MediaType::video;
    items[2].mediaType = MediaType::rawPhoto;
    items[3].scanWarnings = {"odd"};
    PreviewRows rows;
    setItems(rows, items);
    const PreviewCounts counts(rows.items());

    const std::vector<std::pair<PreviewFilter, std::vector<std::string>>> expected{
        {PreviewFilter::photos, {"a.jpg", "d.jpg"}},
        {PreviewFilter::videos, {"b.mov"}},
        {PreviewFilter::raw, {"c.dng"}},
        {PreviewFilter::duplicates, {"a.jpg"}},
        {PreviewFilter::unknownDate, {"b.mov", "c.dng", "d.jpg"}},
        {PreviewFilter::warnings, {"d.jpg"}},
        {PreviewFilter::all, {"a.jpg", "b.mov", "c.dng", "d.jpg"}},
    };
    for (const auto& [filter, listed] : expected) {
        rows.setFilter(filter);
        EXPECT_EQ(names(rows), listed) << rawValue(filter);
        EXPECT_EQ(counts.of(filter), static_cast<std::int64_t>(listed.size())) << rawValue(filter);
    }

    rows.setFilter(PreviewFilter::photos);
    rows.setSearch(QStringLiteral("d"));
    EXPECT_THAT(names(rows), ElementsAre("d.jpg"));
    EXPECT_EQ(rows.itemIndex(0), 3U);
    EXPECT_EQ(rows.rowOf(3), 0);
    EXPECT_EQ(rows.rowOf(0), std::nullopt);
}

TEST(PreviewRowsTest, WritesARowAsItIsToBeRead) {
    const ScopedEnvironment locale("LC_ALL", "en_US.UTF-8");
    const ScopedTimeZone zone("UTC");
    std::vector<MediaItem> items{photo("/in/a.jpg"), photo("/in/b.bin")};
    items[0].resolvedDate = Instant(std::chrono::sys_days{std::chrono::year{2021} / 3 / 14});
    items[0].dateSource = DateSourceType::filename;
    items[0].dateConfidence = DateConfidence::medium;
    items[0].plannedDestinationURL = FilePath("/archive/2021/a.jpg");
    items[1].mediaType = MediaType::other;
    PreviewRows rows;
    setItems(rows, items);
    const auto text = [&rows](int row, int role) {
        return rows.data(rows.index(row), role).toString().toStdString();
    };

    EXPECT_EQ(text(0, PreviewRows::dateRole), "Mar 14, 2021");
    EXPECT_EQ(text(0, PreviewRows::dateSourceRole), "Date inferred from filename");
    EXPECT_EQ(text(0, PreviewRows::confidenceRole), "Medium");
    EXPECT_EQ(text(0, PreviewRows::destinationRole), "/archive/2021/a.jpg");
    EXPECT_TRUE(rows.data(rows.index(0), PreviewRows::isDatedRole).toBool());

    EXPECT_EQ(text(1, PreviewRows::dateRole), "Unknown");
    EXPECT_EQ(text(1, PreviewRows::destinationRole), "\u2014");
    EXPECT_EQ(text(1, PreviewRows::confidenceTintRole), "grey");
    EXPECT_FALSE(rows.data(rows.index(1), PreviewRows::isDatedRole).toBool());
}

TEST(PreviewRowsTest, KeepsItsRowsInPlaceWhenOnlyWhatTheySayChanges) {
    PreviewRows rows;
    std::vector<MediaItem> items{photo("/a.jpg"), photo("/b.jpg")};
    setItems(rows, items);
    int resets = 0;
    int changes = 0;
    QObject::connect(&rows, &QAbstractItemModel::modelReset, [&] { ++resets; });
    QObject::connect(&rows, &QAbstractItemModel::dataChanged, [&] { ++changes; });

    items[1].plannedDestinationURL = FilePath("/archive/b.jpg");
    setItems(rows, items);
    EXPECT_EQ(resets, 0);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(rows.data(rows.index(1), PreviewRows::destinationRole), QStringLiteral("/archive/b.jpg"));

    rows.setSearch(QStringLiteral("a"));
    items.push_back(photo("/a.jpg"));
    std::ranges::rotate(items, items.begin() + 1);
    setItems(rows, items);
    EXPECT_EQ(resets, 2);
    EXPECT_THAT(names(rows), ElementsAre("a.jpg", "a.jpg"));
}

} // namespace
} // namespace lumeo
