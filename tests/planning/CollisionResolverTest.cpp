#include "planning/CollisionResolver.h"

#include "hashing/StreamingHashService.h"
#include "support/MemoryFileSystem.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <random>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const FilePath folder("/archive/2025");

std::string sha256(std::string_view content) {
    MemoryFileSystem files;
    files.addFile(FilePath("/content"), content);
    return *StreamingHashService::computeSHA256(files, FilePath("/content"), StreamingHashService::chunkSize,
                                                [] { return false; });
}

struct Source {
    std::string name;
    std::string content;
    bool isHashed = false;
};

class CollisionResolverTest : public testing::Test {
protected:
    std::string resolve(CollisionResolver& resolver, const Source& source, const std::stop_token& stop = {}) {
        std::optional<std::string> hash;
        if (source.isHashed) {
            hash = sha256(source.content);
        }
        return std::string(resolver
                               .resolveUniqueDestination(folder.appending(source.name),
                                                         static_cast<std::int64_t>(source.content.size()),
                                                         hash, stop)
                               .lastComponent());
    }

    std::vector<std::string> resolveAll(const std::vector<Source>& sources) {
        CollisionResolver resolver(files, files.traits);
        std::vector<std::string> names;
        for (const Source& source : sources) {
            names.push_back(resolve(resolver, source));
        }
        return names;
    }

    MemoryFileSystem files;
};

TEST_F(CollisionResolverTest, ShortensANameThatHasNoRoomForItsNumber) {
    const std::string base = std::string(248, 'a') + "\xC3\xA9"; // two bytes that must not be separated
    const std::string shorter = std::string(248, 'a');
    EXPECT_THAT(resolveAll({{base + "b.jpg", "one"}, {base + "b.jpg", "two"}, {base + "c.jpg", "three"}}),
                ElementsAre(base + "b.jpg", shorter + "_2.jpg", base + "c.jpg"));
}

TEST_F(CollisionResolverTest, NumbersNamesThatAreTaken) {
    files.addFile(folder.appending("IMG.jpg"), "other");
    files.addFile(folder.appending("IMG_2.jpg"), "another");
    EXPECT_THAT(resolveAll({{"IMG.jpg", "x"}, {"IMG.jpg", "x"}, {"IMG_3.jpg", "x"}, {"IMG_2.jpg", "x"}}),
                ElementsAre("IMG_3.jpg", "IMG_4.jpg", "IMG_3_2.jpg", "IMG_2_2.jpg"));
    EXPECT_THAT(resolveAll({{".hidden", ""}, {".hidden", ""}}), ElementsAre(".hidden", ".hidden_2"));
    EXPECT_THAT(resolveAll({{"archive.tar.gz", ""}, {"archive.tar.gz", ""}, {"name.", ""}, {"name.", ""}}),
                ElementsAre("archive.tar.gz", "archive.tar_2.gz", "name.", "name._2"));
    EXPECT_THAT(resolveAll({{"a.JPG", ""}, {"a.jpg", ""}, {"\xFF.jpg", ""}, {"\xFF.jpg", ""}}),
                ElementsAre("a.JPG", "a.jpg", "\xFF.jpg", "\xFF_2.jpg"));
}

TEST_F(CollisionResolverTest, ReusesAnIdenticalFileOnlyWhereIdentityIsShown) {
    files.addFile(folder.appending("IMG.jpg"), "one");
    files.addFile(folder.appending("IMG_2.jpg"), "two");
    files.addFile(folder.appending("IMG_3.jpg"), "longer");
    EXPECT_THAT(resolveAll({{"IMG.jpg", "one"}, {"IMG.jpg", "one", true}, {"IMG.jpg", "two", true}}),
                ElementsAre("IMG_4.jpg", "IMG.jpg", "IMG_2.jpg"));
    EXPECT_THAT(resolveAll({{"new.jpg", "one", true}, {"new.jpg", "one", true}}),
                ElementsAre("new.jpg", "new_2.jpg"))
        << "a planned name is no file yet";
}

TEST_F(CollisionResolverTest, ReadsOnlyFilesThatCouldBeIdentical) {
    files.addFile(folder.appending("IMG.jpg"), "another size");
    files.addFolder(folder.appending("IMG_2.jpg"));
    files.addLink(folder.appending("IMG_3.jpg"), FilePath("/nowhere"));
    files.addLink(folder.appending("IMG_4.jpg"), FilePath("/elsewhere.jpg"));
    files.addFile(FilePath("/elsewhere.jpg"), "content");
    EXPECT_THAT(resolveAll({{"IMG.jpg", "content", true}}), ElementsAre("IMG_5.jpg"));
    EXPECT_THAT(files.opened(), IsEmpty());

    MemoryFileSystem empty;
    CollisionResolver resolver(empty);
    EXPECT_EQ(resolve(resolver, {"a.jpg", "x"}), "a.jpg");
    EXPECT_EQ(resolve(resolver, {"a.jpg", "x"}), "a_2.jpg");
    EXPECT_THAT(empty.examined(), ElementsAre(std::pair(folder, 1))) << "it does not exist";
}

TEST_F(CollisionResolverTest, EndsWhereNoNameCanBeExamined) {
    files.addFolder(folder);
    files.refuseExamining(folder, EACCES);
    EXPECT_THAT(resolveAll({{"IMG.jpg", "x"}, {"IMG.jpg", "x"}}), ElementsAre("IMG.jpg", "IMG_2.jpg"));
}

TEST_F(CollisionResolverTest, ReadsNothingOnceStopped) {
    files.addFile(folder.appending("IMG.jpg"), "content");
    std::stop_source stop;
    stop.request_stop();
    CollisionResolver resolver(files);
    EXPECT_EQ(resolve(resolver, {"IMG.jpg", "content", true}, stop.get_token()), "IMG_2.jpg");
    EXPECT_THAT(files.opened(), IsEmpty());
}

/// The rule without any memory: walk the row of names until one is free or identical; behind a first one that
/// is free only for an identical one.
std::string resolvePlainly(const MemoryFileSystem& files, const Source& source,
                           std::set<std::string>& planned) {
    std::string candidate = source.name;
    std::optional<std::string> free;
    for (int counter = 2;; ++counter) {
        const FileResult<FileStatus> existing = files.status(folder.appending(candidate));
        if (!existing && !planned.contains(comparableName(candidate, files.traits))) {
            if (free || !source.isHashed || candidate != source.name) {
                break;
            }
            free = candidate; // the file may still stand behind it
        }
        if (existing && source.isHashed) {
            const auto digest = StreamingHashService::computeSHA256(
                files, folder.appending(candidate), StreamingHashService::chunkSize, [] { return false; });
            if (digest && *digest == sha256(source.content)) {
                break;
            }
        }
        const std::string_view extension = pathExtension(source.name);
        candidate = std::string(deletingPathExtension(source.name)) + "_" + std::to_string(counter);
        candidate += extension.empty() ? "" : "." + std::string(extension);
    }
    const bool isIdentical = files.status(folder.appending(candidate)).hasValue();
    candidate = free && !isIdentical ? *free : candidate;
    planned.insert(comparableName(candidate, files.traits));
    return candidate;
}

TEST_F(CollisionResolverTest, AgreesWithThePlainRuleOnManyWorldsAndAsksTheDiskOnlyOnce) {
    const std::vector<std::string> names{"a.jpg", "a_2.jpg", "A_3.jpg", "a_2_2.jpg", "a", "A.JPG"};
    const std::vector<std::string> contents{"p", "q", "rr", "ss"};
    for (unsigned seed = 0; seed < 2000; ++seed) {
        std::mt19937 random(seed);
        const auto anyOf = [&](const std::vector<std::string>& texts) {
            return texts[random() % texts.size()];
        };
        MemoryFileSystem plain;
        files = {};
        files.traits.ignoresCase = plain.traits.ignoresCase = seed % 2 == 1;
        for (auto i = random() % 6; i > 0; --i) {
            const FilePath path = folder.appending(anyOf(names));
            const std::string content = anyOf(contents);
            files.addFile(path, content);
            plain.addFile(path, content);
            if (random() % 5 == 0) {
                files.refuseOpening(path, EIO);
                plain.refuseOpening(path, EIO);
            }
        }
        CollisionResolver resolver(files, files.traits);
        std::set<std::string> planned;
        for (unsigned i = 0; i < 12; ++i) {
            const Source source{anyOf(names), anyOf(contents), random() % 2 == 0};
            ASSERT_EQ(resolve(resolver, source), resolvePlainly(plain, source, planned)) << "seed " << seed;
        }
        std::map<std::string, int> examined;
        for (const auto& [path, count] : files.examined()) {
            examined[comparableName(path.bytes(), files.traits)] += count;
        }
        for (const auto& [path, count] : examined) {
            ASSERT_EQ(count, 1) << path << ", seed " << seed;
        }
        std::vector<std::string> opened;
        for (const FilePath& path : files.opened()) {
            opened.push_back(comparableName(path.bytes(), files.traits));
        }
        std::ranges::sort(opened);
        ASSERT_EQ(std::ranges::adjacent_find(opened), opened.end()) << "seed " << seed;
    }
}

} // namespace
} // namespace lumeo
