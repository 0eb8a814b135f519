// Ownership of GLib objects.
#pragma once

#include <glib-object.h>

#include <memory>

namespace GenICam
{

struct ObjectRelease
{
    void operator()(gpointer object) const { g_object_unref(object); }
};

// Holds one reference of a GLib object.
template <typename Object> using ObjectPtr = std::unique_ptr<Object, ObjectRelease>;

} // namespace GenICam
