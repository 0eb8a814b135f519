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
    using Result = ZltErrorType;
    using EntryPtr = ZltApi::EnumEntryPtr;

public:
    using Bytes = std::vector<unsigned char>;
    using Value = std::variant<bool, std::int64_t, double, std::string, Bytes>;
    struct Entry : ZltApi::EnumEntry
    {
        Entry(CallScript& s, std::string n, std::int64_t v) : script(s), name(std::move(n)), number(v) {}
        Result GetName(std::string& result) const override { return result = name, script.Call("EntryName"); }
        Result GetValue(std::int64_t& result) const override { return result = number, script.Call("EntryValue"); }
        CallScript& script;
        std::string name;
        std::int64_t number;
        bool available = true;
    };

    ScriptedFeature(CallScript& script, std::string featureName, ZltFeatureDataType dataType, Value start)
        : name(std::move(featureName)),
          type(dataType),
          value(std::move(start)),
          m_script(script)
    {
    }
    void AddEntry(const std::string& entry, std::int64_t number = 0)
    {
        entries.push_back(std::make_shared<Entry>(m_script, entry, number));
    }

    const std::string name;
    ZltFeatureDataType type;
    Value value, minimum, maximum, increment;
    std::vector<std::shared_ptr<Entry>> entries;
    bool readable = true;
    bool writable = true;
    bool commandDone = true;

    Result GetName(std::string& result) const override { return answer("Name ", result, name); }
    Result GetDataType(ZltFeatureDataType& result) const override { return answer("Type ", result, type); }
    Result IsReadable(bool& result) const override { return answer("Readable ", result, readable); }
    Result IsWritable(bool& result) const override { return answer("Writable ", result, writable); }
    Result GetValue(bool& result) const override { return answer("Get ", result, value); }
    Result GetValue(std::int64_t& result) const override { return answer("Get ", result, value); }
    Result GetValue(double& result) const override { return answer("Get ", result, value); }
    Result GetValue(std::string& result) const override { return answer("Get ", result, value); }
    Result GetValue(Bytes& result) const override { return answer("Get ", result, value); }
    Result SetValue(bool wanted) override { return change("Set ", wanted, wanted ? " true" : " false"); }
    Result SetValue(std::int64_t wanted) override { return change("Set ", wanted, ' ' + std::to_string(wanted)); }
    Result SetValue(double wanted) override { return change("Set ", wanted, ' ' + std::to_string(wanted)); }
    Result SetValue(const char* wanted) override
    {
        return change("Set ", std::string(wanted), std::string(" ") + wanted);
    }
    Result SetValue(const Bytes& wanted) override { return change("Set ", wanted, {}); }
    Result RunCommand() override { return change("Run ", value, {}); }
    Result GetRange(std::int64_t& low, std::int64_t& high) const override { return range(low, high); }
    Result GetRange(double& low, double& high) const override { return range(low, high); }
    Result GetIncrement(std::int64_t& step) const override { return answer("Increment ", step, increment); }
    Result GetIncrement(double& step) const override { return answer("Increment ", step, increment); }
    Result GetEntry(EntryPtr& entry, const char* of) const override { return answer("Entry ", entry, find(of)); }
    Result IsValueAvailable(const char* of, bool& is) const override
    {
        return answer("Available ", is, find(of)->available);
    }
    Result GetEntries(std::vector<EntryPtr>& result) const override
    {
        result.assign(entries.begin(), entries.end());
        return m_script.Call("Entries " + name);
    }
    Result GetValues(std::vector<std::string>& result) const override
    {
        result.clear();
        for (const auto& entry : entries)
        {
            result.push_back(entry->name);
        }
        return m_script.Call("Values " + name);
    }
    Result IsCommandDone(bool& result) const override { return answer("Done ", result, commandDone); }

private:
    std::shared_ptr<Entry> find(const std::string& wanted) const
    {
        return *std::find_if(entries.begin(), entries.end(), [&](const auto& entry) { return entry->name == wanted; });
    }
    template <class T, class Source> Result answer(const char* operation, T& result, const Source& source) const
    {
        const Result code = m_script.Call(operation + name);
        if constexpr (std::is_same_v<Source, Value>)
        {
            const T* const held = std::get_if<T>(&source);
            result = code == ZltErrorSuccess && held ? *held : result;
            return code == ZltErrorSuccess && !held ? ZltErrorWrongType : code;
        }
        else
        {
            result = code == ZltErrorSuccess ? T(source) : result;
            return code;
        }
    }
    template <class T> Result range(T& low, T& high) const
    {
        const Result code = answer("Range ", low, minimum);
        high = code == ZltErrorSuccess ? std::get<T>(maximum) : high;
        return code;
    }
    Result change(const char* operation, const Value& wanted, const std::string& text)
    {
        m_script.changes.push_back(operation + name + text);
        const Result code = m_script.Call(operation + name);
        value = code == ZltErrorSuccess ? wanted : value;
        return code;
    }

    CallScript& m_script;
};
