// commission: the whole job on one camera, from a dark frame to a picture without its defects.

#include "CameraSession.h"
#include "Command.h"
#include "DefectOutput.h"
#include "Detection.h"
#include "Families.h"
#include "FrameGrabber.h"
#include "JsonOutput.h"
#include "SettingsKeeper.h"
#include "Upload.h"

#include "DefectUiType.h"
#include "Exception.h"

#include <CLI/CLI.hpp>
#include <boost/algorithm/string/case_conv.hpp>
#include <boost/format.hpp>
#include <nlohmann/json.hpp>

#include <iostream>
#include <optional>

namespace CommandLine
{

namespace
{

// Share of the sensor's pixels beyond which the frame was not dark, rather than the sensor that bad.
constexpr float LimitShare = 0.005F;

struct Options
{
    std::string camera;
    std::string set;
    int threshold = DefaultThreshold;
    std::optional<int> limit;
    std::optional<double> exposure;
    std::optional<double> gain;
};

void Progress(const std::string& text)
{
    std::cerr << text << '\n';
}

// One commissioning of one camera. Each step throws KTR::System::Exception; a step after the first leaves the camera's
// settings as they were found.
class Commissioning
{
public:
    Commissioning(const Options& options, const std::string& adapter)
        : m_options(options),
          m_session(options.camera, adapter),
          m_camera(m_session.Abstraction()),
          m_adapter(m_session.Adapter()),
          m_settings(*m_camera)
    {
        FindSet(Sets(), m_options.set);
    }

    ExitStatus Run(const Request& request)
    {
        const boost::shared_ptr<KTR::DPC::CorrectionSet> enabledBefore = EnabledSet();
        try
        {
            Measure();
        }
        catch (const KTR::System::Exception&)
        {
            // The failure is what the user must hear of; what cannot be put back is told beside it.
            PutBack(enabledBefore);
            throw;
        }
        if (m_found.isEmpty())
        {
            RestoreCorrection(enabledBefore);
        }
        m_settings.Restore(*m_camera);
        Print(request);
        return !m_equal || m_visible > 0 ? Differences : Done;
    }

private:
    std::vector<boost::shared_ptr<KTR::DPC::CorrectionSet>> Sets() { return m_adapter->GetAvailableCorrectionSets(); }

    boost::shared_ptr<KTR::DPC::CorrectionSet> EnabledSet()
    {
        for (const auto& set : Sets())
        {
            if (m_adapter->IsCorrectionSetEnabled(set))
            {
                return set;
            }
        }
        return nullptr;
    }

    void Measure()
    {
        Progress("Switching the correction off and taking a dark frame...");
        const QImage dark = GrabWithCorrection(false);
        m_frameSize = dark.size();
        m_conditions = PresentConditions();

        Progress("Searching defective pixels...");
        std::vector<int> types;
        for (const KTR::DPC::SensorDefectType type : m_adapter->GetAvailableDefectTypes())
        {
            types.push_back(DefectUiType::FromSensorDefectType(type));
        }
        m_found = DetectInFrame(dark, m_options.threshold, static_cast<int>(m_adapter->GetSensorWidth()),
                                static_cast<int>(m_adapter->GetSensorHeight()), types);
        CheckLimit();
        if (m_found.isEmpty())
        {
            Progress("No defect was found, so the correction set stays as it is.");
            m_equal = true;
            return;
        }

        Progress((boost::format("Writing %1% defects into correction set \"%2%\"...") % m_found.size() % m_options.set)
                     .str());
        const UploadResult upload = Upload(*m_adapter, FindSet(Sets(), m_options.set), Metadata(m_conditions), m_found);
        m_written = static_cast<int>(upload.readBack.size());
        m_equal = upload.equal;
        if (NeedsRestart())
        {
            Progress("Restarting the camera...");
            m_session.Restart();
            m_camera = m_session.Abstraction();
            m_adapter = m_session.Adapter();
        }

        Progress("Switching the correction on and taking a second dark frame...");
        Judge(GrabWithCorrection(true));
    }

    // A dark frame with manual exposure and gain, 8 bits, no mirroring.
    QImage GrabWithCorrection(bool on)
    {
        for (const char* name : {"ReverseX", "ReverseY"})
        {
            if (HasFeature(*m_camera, name))
            {
                m_camera->SetFeatureBooleanValue(name, false);
            }
        }
        for (const char* name : {"ExposureAuto", "GainAuto"})
        {
            if (HasFeature(*m_camera, name))
            {
                m_camera->SetFeatureEnumValue(name, "Off");
            }
        }
        SetNumber({"ExposureTime", "ExposureTimeAbs"}, m_options.exposure);
        SetNumber({"Gain"}, m_options.gain);
        SelectEightBitFormat(*m_camera);
        m_adapter->SetCorrectionSetEnabled(FindSet(Sets(), m_options.set), on);
        return GrabFrame(m_session.Api(), *m_camera, SettlingFrames);
    }

    // What the camera tells about the present state. Only some families keep it, so that nothing here is a failure.
    Conditions PresentConditions()
    {
        const auto read = [this](const char* name) -> std::optional<double>
        {
            try
            {
                return HasFeature(*m_camera, name) ? std::optional(m_camera->GetFeatureDoubleValue(name))
                                                   : std::nullopt;
            }
            catch (const KTR::System::Exception&)
            {
                return std::nullopt;
            }
        };
        const std::optional<double> exposure = read("ExposureTime");
        return {read("Gain"), exposure ? exposure : read("ExposureTimeAbs"), read("DeviceTemperature")};
    }

    // Sets the first of the features that the camera has, when a value was asked for.
    void SetNumber(std::initializer_list<const char*> names, const std::optional<double>& value)
    {
        if (!value)
        {
            return;
        }
        for (const char* name : names)
        {
            if (HasFeature(*m_camera, name))
            {
                m_camera->SetFeatureDoubleValue(name, *value);
                return;
            }
        }
        throw KTR::System::Exception("The camera has no feature \"" + std::string(*names.begin()) + "\".", true);
    }

    void CheckLimit() const
    {
        const float pixels =
            static_cast<float>(m_adapter->GetSensorWidth()) * static_cast<float>(m_adapter->GetSensorHeight());
        const int limit = m_options.limit.value_or(static_cast<int>(pixels * LimitShare));
        if (m_found.size() > limit)
        {
            throw KTR::System::Exception(
                (boost::format(
                     "Detection is done.\n%1% defects found.\nThe maximum number of defects\nsupported by the "
                     "tool (%2%) is exceeded.\n\nPlease check your configuration:\n\nThreshold too low?\n"
                     "Exposure or gain too high?\nCamera not properly covered?") %
                 m_found.size() % limit)
                    .str(),
                true);
        }
    }

    // These families apply a written table at once; all others load it when they start.
    bool NeedsRestart()
    {
        std::string family = FamilyName(*m_camera);
        if (family.empty())
        {
            family = m_camera->GetFeatureStringValue("DeviceModelName");
        }
        boost::algorithm::to_lower(family);
        return family.rfind("rivo", 0) != 0 && family.rfind("dreli", 0) != 0;
    }

    // A defect is hidden when none of its pixels reaches the threshold any more.
    void Judge(const QImage& corrected)
    {
        if (corrected.size() != m_frameSize)
        {
            throw KTR::System::Exception("The camera changed its image size during the job.", true);
        }
        for (const DefectInfo& defect : m_found)
        {
            bool hidden = true;
            for (int y = defect.y; hidden && y < defect.y + defect.height; ++y)
            {
                const uchar* line = corrected.constScanLine(y);
                for (int x = defect.x; hidden && x < defect.x + defect.width; ++x)
                {
                    hidden = line[x] < m_options.threshold;
                }
            }
            m_isHidden.push_back(hidden);
            ++(hidden ? m_hidden : m_visible);
        }
    }

    // The correction as it was found: on with that set, or off when there was none.
    void RestoreCorrection(const boost::shared_ptr<KTR::DPC::CorrectionSet>& enabledBefore)
    {
        m_adapter->SetCorrectionSetEnabled(enabledBefore ? enabledBefore : FindSet(Sets(), m_options.set),
                                           enabledBefore != nullptr);
    }

    void PutBack(const boost::shared_ptr<KTR::DPC::CorrectionSet>& enabledBefore)
    {
        try
        {
            RestoreCorrection(enabledBefore);
            m_settings.Restore(*m_camera);
        }
        catch (const KTR::System::Exception& failure)
        {
            Progress("The camera's settings could not be put back: " + failure.ToString());
        }
    }

    void Print(const Request& request) const
    {
        if (request.json)
        {
            nlohmann::ordered_json list = ToJson(m_found);
            for (std::size_t i = 0; i < m_isHidden.size(); ++i)
            {
                list[i]["hidden"] = static_cast<bool>(m_isHidden[i]);
            }
            const nlohmann::ordered_json document = {{"found", m_found.size()}, {"written", m_written},
                                                     {"equal", m_equal},        {"hidden", m_hidden},
                                                     {"visible", m_visible},    {"defects", list}};
            PrintJson(document);
            return;
        }
        for (std::size_t i = 0; i < m_isHidden.size(); ++i)
        {
            const DefectInfo& defect = m_found[static_cast<int>(i)];
            std::cout << defect.type << ' ' << defect.x << ' ' << defect.y << ' ' << defect.width << ' '
                      << defect.height << ' ' << (m_isHidden[i] ? "hidden" : "visible") << '\n';
        }
        std::cout << "found " << m_found.size() << ", written " << m_written << ", hidden " << m_hidden << ", visible "
                  << m_visible << '\n';
    }

    const Options& m_options;
    CameraSession m_session;
    boost::shared_ptr<KTR::DPC::CameraAbstraction> m_camera;
    boost::shared_ptr<KTR::DPC::DpcAdapter> m_adapter;
    SettingsKeeper m_settings;
    QSize m_frameSize;
    Conditions m_conditions; // of the frame with the defects
    QVector<DefectInfo> m_found;
    std::vector<bool> m_isHidden; // of each found defect, once judged
    int m_written = 0;
    int m_hidden = 0;
    int m_visible = 0;
    bool m_equal = false;
};

} // namespace

void AddCommission(CLI::App& app, Request& request)
{
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand(
        "commission", "Find the defects of a covered camera, write them, restart, and check that they are gone");
    command->add_option("CAMERA", options->camera, "Camera ID; its lens is covered")->required();
    command->add_option("SET", options->set, "Correction set to write")->required();
    command->add_option("--threshold", options->threshold, "Grey value from which on a pixel is a defect")
        ->check(CLI::Range(1, 255))
        ->capture_default_str();
    command->add_option("--limit", options->limit, "Most defects to accept; 0.5 % of the pixels without it")
        ->check(CLI::Range(0, 1 << 30));
    command->add_option("--exposure", options->exposure, "Exposure time in microseconds; the present one without it");
    command->add_option("--gain", options->gain, "Gain; the present one without it");
    command->callback(
        [options, &request]
        { request.action = [options, &request] { return Commissioning(*options, request.adapter).Run(request); }; });
}

} // namespace CommandLine
