// Keeps the static data registry alive for as long as any file that may use it has static objects.
#pragma once

namespace KTR::System
{

// The first instance of a process creates the registry of StaticData and the last one shuts it down. Every file that
// includes this header holds an instance, constructed before the file's own static objects and destroyed after them, so
// that they may use the registry in constructor and destructor. Only for static objects: not thread-safe.
class _StaticDataInitializer // NOLINT(bugprone-reserved-identifier): no clash with the libraries in use
{
public:
    // Throws a KTR::System::Exception if the registry cannot be allocated.
    _StaticDataInitializer();
    ~_StaticDataInitializer();

    _StaticDataInitializer(const _StaticDataInitializer&) = delete;
    _StaticDataInitializer& operator=(const _StaticDataInitializer&) = delete;
};

namespace
{
// NOLINTNEXTLINE(cert-err58-cpp): a process that cannot allocate its registry must not start
const _StaticDataInitializer StaticDataLifetime;
} // namespace

} // namespace KTR::System
