// The installed tree, and the installed vantrel-cli keeping its settings and data in the user's
// folders while a copy run from its build folder keeps them beside itself.
#include "common/test_support.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>

namespace {

bool Exists(const std::string& path) {
    struct stat s;
    return stat(path.c_str(), &s) == 0;
}

int Shell(const std::string& command) {
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Install, TreeAndUserFolders) {
    TempDir dir;
    const std::string prefix = dir.File("usr");
    ASSERT_EQ(Shell("cmake --install " VANTREL_BINARY_DIR " --prefix " + prefix + " > " +
                    dir.File("install.log") + " 2>&1"),
              0)
        << ReadWholeFile(dir.File("install.log"));
    for (const char* file :
         {"bin/vantrel-cli", "share/vantrel/vtl.ini", "share/vantrel/simdaq.ini",
          "share/vantrel/nidaq.ini", "share/vantrel/thinfilm.R(T)", "share/doc/vantrel/README.md",
          "share/doc/vantrel/copyright", "share/man/man1/vantrel-cli.1.gz",
          "share/man/man1/vantrel.1.gz", "share/applications/vantrel.desktop",
          "share/icons/hicolor/scalable/apps/vantrel.svg",
          "share/icons/hicolor/48x48/apps/vantrel.png"})
        EXPECT_TRUE(Exists(prefix + "/" + file)) << file;

    // A user who never built anything: the settings appear in the config home, the run's data
    // in the data home, nothing beside the program.
    const std::string config = dir.File("config"), data = dir.File("share");
    const std::string run =
        "cd " + dir.Path() + " && XDG_CONFIG_HOME=" + config + " XDG_DATA_HOME=" + data + " " +
        prefix + "/bin/vantrel-cli measure IVC -step:2048 > " + dir.File("run.log") + " 2>&1";
    ASSERT_EQ(Shell(run), 0) << ReadWholeFile(dir.File("run.log"));
    EXPECT_TRUE(Exists(config + "/vantrel/vtl.ini"));
    EXPECT_TRUE(Exists(config + "/vantrel/simdaq.ini"));
    const std::string log = ReadWholeFile(dir.File("run.log"));
    EXPECT_NE(log.find("data: " + data + "/vantrel/data/IVC_"), std::string::npos) << log;
    EXPECT_FALSE(Exists(prefix + "/bin/data"));
    EXPECT_FALSE(Exists(prefix + "/bin/vtl.ini"));

    // A settings file the user changed stays as it is at the next start.
    const std::string mine = ReadWholeFile(config + "/vantrel/vtl.ini") + "[Mine]\r\nKey=1\r\n";
    WriteWholeFile(config + "/vantrel/vtl.ini", mine);
    ASSERT_EQ(Shell(run), 0) << ReadWholeFile(dir.File("run.log"));
    EXPECT_EQ(ReadWholeFile(config + "/vantrel/vtl.ini"), mine);
}

} // namespace

namespace {

// The package made from this build holds the tree above and depends on the Qt libraries.
TEST(Install, PackageFilesAndDependencies) {
    if (Shell("command -v dpkg-deb > /dev/null && command -v dpkg-shlibdeps > /dev/null") != 0)
        GTEST_SKIP() << "no dpkg-dev";
    TempDir dir;
    ASSERT_EQ(Shell("cd " VANTREL_BINARY_DIR " && cpack -G DEB -B " + dir.Path() + " > " +
                    dir.File("cpack.log") + " 2>&1"),
              0)
        << ReadWholeFile(dir.File("cpack.log"));
    ASSERT_EQ(Shell("cd " + dir.Path() + " && dpkg-deb -c vantrel_*.deb > files.txt && " +
                    "dpkg-deb -f vantrel_*.deb Depends > depends.txt"),
              0);
    const std::string files = ReadWholeFile(dir.File("files.txt"));
    for (const char* file :
         {"./usr/bin/vantrel-cli", "./usr/bin/vantrel", "./usr/share/vantrel/vtl.ini",
          "./usr/share/doc/vantrel/README.md", "./usr/share/man/man1/vantrel.1.gz",
          "./usr/share/applications/vantrel.desktop"})
        EXPECT_NE(files.find(file), std::string::npos) << file;
    const std::string depends = ReadWholeFile(dir.File("depends.txt"));
    for (const char* package : {"libqt6widgets6", "libqt6printsupport6", "libc6"})
        EXPECT_NE(depends.find(package), std::string::npos) << depends;
}

} // namespace
