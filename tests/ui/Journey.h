#pragma once

#include "samples/TinyMovies.h"
#include "support/Gate.h"
#include "ui/MadeProgram.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace lumeo::testing {

/// The program with a memory card and a folder of pictures. They hold two different photos with one name, two
/// copies of one photo, a photo without a date, a movie, and a file that is not media.
class Journey : public ::testing::Test {
protected:
    using Files = std::map<std::string, std::string>; ///< contents by relative path

    Journey() {
        home.write("card/IMG_0001.JPG", photo("2021:03:14 12:00:00", 16));
        home.write("card/IMG_0002.JPG", photo("2021:03:20 12:00:00", 17));
        TinyMovie movie;
        movie.quickTimeCreationDate = "2020-07-15T12:00:00+0000";
        home.write("card/MVI_0003.MOV", tinyQuickTime(movie));
        home.write("card/notes.txt", "no media");
        home.write("Pictures/IMG_0001.JPG", photo("2021:03:15 12:00:00", 18));
        home.write("Pictures/again.jpg", contentOf(home / "card/IMG_0002.JPG"));
        home.write("Pictures/undated.jpg", tinyJpeg({}));
        originals = filesBelow(home.path());
        made->desktop.folders = {home / "card", home / "Pictures"};
    }

    void TearDown() override { EXPECT_EQ(Warnings::text(), ""); }

    [[nodiscard]] FilePath archive() const { return home / "Archive"; }

    /// The destinations of the files in an archive by year and month, relative to `home`.
    [[nodiscard]] static std::map<std::string, std::string> places() {
        return {{"card/IMG_0001.JPG", "Archive/2021-03/IMG_0001.JPG"},
                {"card/IMG_0002.JPG", "Archive/2021-03/IMG_0002.JPG"},
                {"card/MVI_0003.MOV", "Archive/2020-07/MVI_0003.MOV"},
                {"Pictures/IMG_0001.JPG", "Archive/2021-03/IMG_0001_2.JPG"},
                {"Pictures/again.jpg", "Archive/2021-03/again.jpg"},
                {"Pictures/undated.jpg", "Archive/_Unknown Date/undated.jpg"}};
    }

    /// The originals and everything that a copy adds. Of two identical files only one is copied.
    [[nodiscard]] Files copied() const {
        Files files = originals;
        for (const auto& [from, to] : places()) {
            files[to] = originals.at(from);
        }
        files.erase("Archive/2021-03/again.jpg");
        return files;
    }

    /// What a move of these files leaves.
    [[nodiscard]] Files moved(const std::map<std::string, std::string>& those = places()) const {
        Files files = originals;
        for (const auto& [from, to] : those) {
            auto file = files.extract(from);
            file.key() = to;
            files.insert(std::move(file));
        }
        return files;
    }

    /// Whether exactly these files are on the disk, byte for byte, by paths relative to `home`. Reports the
    /// files that differ.
    [[nodiscard]] ::testing::AssertionResult areThere(const Files& expected) const {
        const Files found = filesBelow(home.path());
        auto result = found == expected ? ::testing::AssertionSuccess() : ::testing::AssertionFailure();
        for (const auto& [path, content] : expected) {
            if (const auto there = found.find(path); there == found.end()) {
                result << path << " is missing\n";
            } else if (there->second != content) {
                result << path << " has changed\n";
            }
        }
        for (const auto& file : found) {
            if (!expected.contains(file.first)) {
                result << file.first << " is there too\n";
            }
        }
        return result;
    }

    [[nodiscard]] bool arrives(WizardStep step) {
        return waitUntil([this, step] { return made->state.currentStep() == step; });
    }

    TempFolder home;
    Files originals;
    std::optional<MadeProgram> made{std::in_place};

private:
    static std::string photo(const char* date, int width) {
        TinyPhoto photo;
        photo.dateTimeOriginal = date;
        photo.width = width;
        return tinyJpeg(photo);
    }
};

} // namespace lumeo::testing
