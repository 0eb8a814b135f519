// One file on a camera.
#pragma once

#include "Object.h"
#include "TaskObserver.h"
#include "ZltApi/Types.h"

#include <boost/shared_ptr.hpp>

#include <string>
#include <vector>

namespace KTR::FeatureHelper::FileAccess
{

// Every operation but GetCamera, GetName and IsWritable works on the camera and returns when it is done. A failed call
// of the camera API is a KTR::FeatureHelper::Exception with the API's code, any other failure a KTR::System::Exception.
// A transfer that fails leaves on the camera what was moved so far, and the file open. An empty observer is allowed
// everywhere. Files of one camera share its selectors, so calls must not overlap.
class File : public virtual System::Object
{
public:
    virtual ZltApi::CameraPtr GetCamera() const = 0;
    virtual std::string GetName() const = 0;

    // The mode is one that the camera offers, such as "Read" or "Write".
    virtual void Open(const std::string& mode) = 0;
    virtual void Close() = 0;
    // Removes the content.
    virtual void Delete() = 0;

    // Write from offset 0 on; no bytes leave the file as it was.
    virtual void Write(const void* data, unsigned long size, const boost::shared_ptr<TaskObserver>& observer) = 0;
    virtual void Write(const std::vector<unsigned char>& data, const boost::shared_ptr<TaskObserver>& observer) = 0;
    // Write from the present end of the file on.
    virtual void Append(const void* data, unsigned long size, const boost::shared_ptr<TaskObserver>& observer) = 0;
    virtual void Append(const std::vector<unsigned char>& data, const boost::shared_ptr<TaskObserver>& observer) = 0;

    // Reads *size bytes from offset 0 on. Without data only tells how many bytes that would be: *size, or for 0 the
    // size of the file.
    virtual void Read(void* data, unsigned long* size, const boost::shared_ptr<TaskObserver>& observer) const = 0;
    // Reads the whole file. The vector gets the file's bytes; an empty file leaves it as it was.
    virtual void Read(std::vector<unsigned char>& data, const boost::shared_ptr<TaskObserver>& observer) const = 0;
    // The same for the first bytes of the file, or for a size of 0 the whole file.
    virtual void Read(std::vector<unsigned char>& data, unsigned long size,
                      const boost::shared_ptr<TaskObserver>& observer) const = 0;
    virtual std::vector<unsigned char> Read(const boost::shared_ptr<TaskObserver>& observer) const = 0;

    // Present size in bytes.
    virtual unsigned long GetSize() const = 0;
    // Whether the camera lets the file be changed; found out when the object was made.
    virtual bool IsWritable() const = 0;
};

} // namespace KTR::FeatureHelper::FileAccess
