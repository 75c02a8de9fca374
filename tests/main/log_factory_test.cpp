#include "main/log_factory.h"

#include "tests/support/files.h"
#include "tests/support/temp_dir.h"

#include <gtest/gtest.h>

#include <fstream>

// A named log begins anew with each run, and only with each run.
TEST(LogFactory, NamedLogIsTruncatedOnceAndWrittenAtOnce) {
    const TempDir dir;
    const std::string file = dir.write("flight.log", "from an earlier run\n");
    LogFactory* logs = LogFactory::getInstance();
    logs->log(file, "take-off");
    EXPECT_EQ(readFile(file), "take-off\n");
    logs->log(file, "landing");
    EXPECT_EQ(readFile(file), "take-off\nlanding\n");
    EXPECT_EQ(&logs->getStream(file), &logs->getStream(file));

    const std::string nowhere = dir / "no/such/folder.log";
    EXPECT_NO_THROW(logs->log(nowhere, "lost"));
    EXPECT_FALSE(std::ifstream(nowhere).is_open());
}
