// A feature and its entries whose calls fail or change things as a test wants.
#pragma once

#include "CallScript.h"
#include "ZltApi/Feature.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <variant>

// Everything takes effect after the script of the call has run.
class ScriptedFeature : public ZltApi::Feature
{
public:
    using Bytes = std::vector<unsigned char>;
    using Value = std::variant<bool, std::int64_t, double, std::string, Bytes>;
    struct Entry : ZltApi::EnumEntry
    {
        Entry(CallScript& callScript, std::string entryName, std::int64_t value, bool isAvailable)
            : script(callScript),
              name(std::move(entryName)),
              number(value),
              available(isAvailable)
        {
        }
        ZltErrorType GetName(std::string& result) const override { return result = name, script.Call("EntryName"); }
        ZltErrorType GetValue(std::int64_t& result) const override
        {
            return result = number, script.Call("EntryValue");
        }
        CallScript& script;
        std::string name;
        std::int64_t number;
        bool available;
    };

    ScriptedFeature(CallScript& script, std::string featureName, ZltFeatureDataType dataType, Value start)
        : name(std::move(featureName)),
          type(dataType),
          value(std::move(start)),
          m_script(script)
    {
    }
    void AddEntry(const std::string& entry, std::int64_t number = 0, bool available = true)
    {
        entries.push_back(std::make_shared<Entry>(m_script, entry, number, available));
    }

    const std::string name;
    ZltFeatureDataType type;
    Value value, minimum, maximum, increment;
    std::vector<std::shared_ptr<Entry>> entries;
    bool readable = true;
    bool writable = true;

    ZltErrorType GetName(std::string& result) const override { return answer("Name ", result, name); }
    ZltErrorType GetDataType(ZltFeatureDataType& result) const override { return answer("Type ", result, type); }
    ZltErrorType IsReadable(bool& result) const override { return answer("Readable ", result, readable); }
    ZltErrorType IsWritable(bool& result) const override { return answer("Writable ", result, writable); }
    ZltErrorType GetValue(bool& result) const override { return answer("Get ", result, value); }
    ZltErrorType GetValue(std::int64_t& result) const override { return answer("Get ", result, value); }
    ZltErrorType GetValue(double& result) const override { return answer("Get ", result, value); }
    ZltErrorType GetValue(std::string& result) const override { return answer("Get ", result, value); }
    ZltErrorType GetValue(Bytes& result) const override { return answer("Get ", result, value); }
    ZltErrorType SetValue(bool wanted) override { return change("Set ", wanted, wanted ? " true" : " false"); }
    ZltErrorType SetValue(std::int64_t wanted) override { return change("Set ", wanted, ' ' + std::to_string(wanted)); }
    ZltErrorType SetValue(double wanted) override { return change("Set ", wanted, ' ' + std::to_string(wanted)); }
    ZltErrorType SetValue(const char* wanted) override
    {
        return change("Set ", std::string(wanted), ' ' + std::string(wanted));
    }
    ZltErrorType SetValue(const Bytes& wanted) override { return change("Set ", wanted, {}); }
    ZltErrorType RunCommand() override { return change("Run ", value, {}); }
    ZltErrorType GetRange(std::int64_t& low, std::int64_t& high) const override { return range(low, high); }
    ZltErrorType GetRange(double& low, double& high) const override { return range(low, high); }
    ZltErrorType GetIncrement(std::int64_t& step) const override { return answer("Increment ", step, increment); }
    ZltErrorType GetIncrement(double& step) const override { return answer("Increment ", step, increment); }
    ZltErrorType GetEntry(ZltApi::EnumEntryPtr& entry, const char* wanted) const override
    {
        return answer("Entry ", entry, find(wanted));
    }
    ZltErrorType GetEntries(std::vector<ZltApi::EnumEntryPtr>& result) const override
    {
        result.assign(entries.begin(), entries.end());
        return m_script.Call("Entries " + name);
    }
    ZltErrorType IsValueAvailable(const char* wanted, bool& available) const override
    {
        return answer("Available ", available, find(wanted)->available);
    }
    ZltErrorType GetValues(std::vector<std::string>&) const override { return ZltErrorNotImplemented; }
    ZltErrorType IsCommandDone(bool&) const override { return ZltErrorNotImplemented; }

private:
    std::shared_ptr<Entry> find(const std::string& wanted) const
    {
        return *std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry->name == wanted; });
    }
    template <class T, class Source> ZltErrorType answer(const char* operation, T& result, const Source& source) const
    {
        const ZltErrorType code = m_script.Call(operation + name);
        if constexpr (!std::is_same_v<Source, Value>)
        {
            result = code == ZltErrorSuccess ? T(source) : result;
        }
        else if (const T* held = std::get_if<T>(&source); code == ZltErrorSuccess)
        {
            result = held ? *held : result;
            return held ? code : ZltErrorWrongType;
        }
        return code;
    }
    template <class T> ZltErrorType range(T& low, T& high) const
    {
        const ZltErrorType code = answer("Range ", low, minimum);
        high = code == ZltErrorSuccess ? std::get<T>(maximum) : high;
        return code;
    }
    ZltErrorType change(const char* operation, const Value& wanted, const std::string& text)
    {
        m_script.changes.push_back(operation + name + text);
        const ZltErrorType code = m_script.Call(operation + name);
        value = code == ZltErrorSuccess ? wanted : value;
        return code;
    }

    CallScript& m_script;
};
