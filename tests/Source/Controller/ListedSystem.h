// The camera API with nothing but a test's own cameras behind it, in a working directory of the test's own.
#pragma once

#include "ListProvider.h"
#include "ListedCamera.h"
#include "WorkingFolder.h"

#include <dlfcn.h>

class ListedSystem : public testing::Test, protected WorkingFolder
{
protected:
    ListedSystem()
    {
        qputenv("ZLT_PROVIDER_PATH", LIST_PROVIDER_FOLDER);
        void* const library = ::dlopen(LIST_PROVIDER_FOLDER "/provider.so", RTLD_NOW);
        const auto instance = reinterpret_cast<ZltApi::Provider* (*)()>(::dlsym(library, "ZltProviderInstance"));
        provider = static_cast<ListProvider*>(instance());
        provider->cameras.clear();
        provider->layers = {provider->foreign, provider->good};
    }
    ~ListedSystem() override
    {
        provider->cameras.clear();
        for (const auto& camera : m_made)
        {
            camera->Close(); // a stream that still runs holds its camera
        }
    }

    std::shared_ptr<ListedCamera> Add(const std::string& id, const std::string& model = "OSTREL S-1")
    {
        auto camera = std::make_shared<ListedCamera>(id, provider->good, model);
        provider->cameras.push_back(camera);
        m_made.push_back(camera);
        return camera;
    }

    ListProvider* provider = nullptr;

private:
    std::vector<std::shared_ptr<ListedCamera>> m_made;
};
