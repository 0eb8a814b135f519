// The common root of the support library's classes.
#pragma once

namespace KTR::System
{

// Derived from virtually, so that a class with several bases from the library still has one root.
class Object
{
public:
    Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
    virtual ~Object() = default;
};

} // namespace KTR::System
