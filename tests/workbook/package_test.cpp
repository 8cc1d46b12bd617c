// Containers beyond the classic fields of the format.
#include "adapters/workbook/package.h"

#include "tests/workbook/fixture.h"

namespace vmgv::test {
namespace {

using namespace workbook;
using PackageTest = WorkbookTest;

// Minizip does not see the 64-bit fields here, so Python reads them.
TEST_F(PackageTest, APartOfFiveGigabytes) {
  PackedStream block(folder.string()), end(folder.string());
  block.text().append(std::string(100000000, 'a'));
  block.end(Deflater::Then::Boundary);
  end.text().append("b");
  end.end(Deflater::Then::End);
  std::vector<const PackedStream*> streams(50, &block);
  streams.push_back(&end);
  {
    ReplacementFile file(targetPath());
    Package package(file);
    package.add("before.xml", "before");
    package.add("large.xml", streams);
    package.add("after.xml", "after");
    package.finish();
    file.commit();
  }
  const std::string check =
      "/usr/bin/python3 -c \"import zipfile, sys; zip = zipfile.ZipFile('" + targetPath() +
      "'); sizes = [part.file_size for part in zip.infolist()]; "
      "sys.exit(sizes != [6, 5000000001, 5] or zip.open('large.xml').read(9) != b'aaaaaaaaa' "
      "or zip.read('before.xml') != b'before' or zip.read('after.xml') != b'after')\"";
  EXPECT_EQ(0, std::system(check.c_str()));
}

}  // namespace
}  // namespace vmgv::test
