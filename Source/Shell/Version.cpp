// The program's version.
#include "Version.h"

namespace Lorvane
{
namespace
{

constexpr int MajorVersion = 2;
constexpr int MinorVersion = 2;
constexpr int PatchVersion = 0;
constexpr const char* SourceRevision = "259137b";

} // namespace

const std::string VersionString = std::to_string(MajorVersion) + "." + std::to_string(MinorVersion) + "." +
                                  std::to_string(PatchVersion) + "." + SourceRevision;

} // namespace Lorvane
