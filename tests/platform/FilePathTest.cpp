#include "platform/FilePath.h"

#include <filesystem>

#include <gtest/gtest.h>

namespace lumeo {
namespace {

TEST(FilePathTest, theLastDotBeginsTheExtensionUnlessItBeginsTheName) {
    EXPECT_EQ(pathExtension("a.tar.gz"), "gz");
    EXPECT_EQ(pathExtension(".a.jpg"), "jpg");
    for (const std::string_view none : {"README", ".hidden", "name.", ".", "..", ""}) {
        EXPECT_EQ(pathExtension(none), "") << none;
        EXPECT_EQ(deletingPathExtension(none), none);
    }
    EXPECT_EQ(deletingPathExtension("a.tar.gz"), "a.tar");
    EXPECT_EQ(FilePath("/v1.0/README").extension(), "");
}

TEST(FilePathTest, comesApartAndTogetherAtItsSlashes) {
    struct Case {
        std::string_view path, last, parent;
    };
    for (const auto& [path, last, parent] :
         {Case{"/a/b.jpg", "b.jpg", "/a"}, Case{"/a//b//", "b", "/a"}, Case{"/a", "a", "/"},
          Case{"//a", "a", "/"}, Case{"/", "/", "/"}, Case{"a", "a", ""}, Case{"", "", ""}}) {
        EXPECT_EQ(FilePath(std::string(path)).lastComponent(), last) << path;
        EXPECT_EQ(FilePath(std::string(path)).parent(), FilePath(std::string(parent))) << path;
    }
    EXPECT_EQ(FilePath("/").appending("a").bytes(), "/a");
    EXPECT_EQ(FilePath("/a").appending("b/c").bytes(), "/a/b/c");
    EXPECT_EQ(FilePath("/a").appending("").bytes(), "/a");
}

TEST(FilePathTest, standardizesByTheTextAlone) {
    EXPECT_EQ(FilePath::standardized("//a/./b//../c/").bytes(), "/a/c");
    EXPECT_EQ(FilePath::standardized("/../..").bytes(), "/");
    EXPECT_EQ(FilePath::standardized("/...").bytes(), "/...");
    EXPECT_TRUE(FilePath::standardized("").empty());
    const FilePath here(std::filesystem::current_path().string());
    EXPECT_EQ(FilePath::standardized("x/../photos"), here.appending("photos"));
    EXPECT_EQ(FilePath::standardized(".."), here.parent());
}

TEST(FilePathTest, everyByteSurvivesTheUrlAndNothingElseIsTakenForOne) {
    std::string bytes = "/";
    for (int byte = 1; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    EXPECT_EQ(FilePath::fromFileUrl(FilePath(bytes).fileUrl()), FilePath(bytes));
    EXPECT_EQ(FilePath("/Zoë's #1 50%?.jpg").fileUrl(), "file:///Zo%C3%AB%27s%20%231%2050%25%3F.jpg");
    EXPECT_EQ(FilePath::fromFileUrl("file://localhost/a%2fb"), FilePath("/a/b"));
    for (const std::string_view url :
         {"", "/a", "http:///a", "file:/a", "file://", "file://server/a", "file://localhostile/a",
          "file:///a%", "file:///a%2", "file:///a%G0", "file:///a%-1", "file:///a%00b"}) {
        EXPECT_FALSE(FilePath::fromFileUrl(url)) << url;
    }
}

TEST(FilePathTest, showsWhatIsNoTextAsReplacementCharacters) {
    EXPECT_EQ(FilePath("/Zoë/caf\xE9.jpg").displayText(), "/Zoë/caf\uFFFD.jpg");
    for (const std::string_view bad : {"\xE9", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "a\xE2\x82"}) {
        EXPECT_FALSE(isValidUtf8(bad));
        EXPECT_TRUE(isValidUtf8(replacingInvalidUtf8(bad)));
    }
}

} // namespace
} // namespace lumeo
