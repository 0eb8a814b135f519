// Features of the image settings.
#include "Device/ImageControl.h"

#include "Device/PixelFormatNames.h"

#include "ZltApi/PixelFormat.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Simulation
{

namespace
{

constexpr std::int64_t SmallestSide = 16; // pixels
constexpr std::int64_t FilterPeriod = 2;  // pixels, after which the colour filter repeats
constexpr double ShortestExposure = 20.0; // microseconds
constexpr double LongestExposure = 10'000'000.0;
constexpr double LongestAutoExposure = 100'000.0;
constexpr double HighestGain = 24.0;       // dB
constexpr double TargetMean = 1800.0;      // 12-bit counts
constexpr double CloseEnough = 0.05;       // of the target
constexpr double LargestError = 8.0;       // of the brightness, to which the automatic modes react
constexpr double ReactionTime = 0.5;       // seconds, in which the error of the brightness falls to its e-th part
constexpr double LongestReaction = 0.25;   // seconds of one step
constexpr double SensorTemperature = 40.0; // degrees Celsius
constexpr double TemperatureSteps = 4.0;   // in one degree

} // namespace

ImageControl::ImageControl(const CameraConfig& config, Hooks hooks) : m_config(config), m_hooks(std::move(hooks)) {}

void ImageControl::AddFeatures(FeatureMap& features)
{
    AddGeometry(features);
    AddMirroring(features);
    AddPixelFormat(features);
    AddExposure(features);
}

void ImageControl::LockWhileStreaming(FeatureNode& node) const
{
    node.WritableIf([this] { return !m_hooks.isStreaming(); });
    node.KeepWhilePowered();
}

void ImageControl::AddGeometry(FeatureMap& features)
{
    const auto constant = [&](const char* name, std::int64_t value) {
        features.Add<IntegerNode>(name, value, IntegerNode::Limits{value, value}).ReadOnly();
    };
    const SensorConfig& sensor = m_config.sensor;
    constant("SensorWidth", sensor.width);
    constant("SensorHeight", sensor.height);
    constant("WidthMax", sensor.width);
    constant("HeightMax", sensor.height);
    m_width = &AddSide(features, "Width", sensor.width, &m_offsetX);
    m_height = &AddSide(features, "Height", sensor.height, &m_offsetY);
    const std::int64_t increment = sensor.filter == ColorFilter::Mono
                                       ? m_config.sizeIncrement
                                       : std::max<std::int64_t>(FilterPeriod, m_config.sizeIncrement);
    const auto offset = [&](const char* name, const IntegerNode& side, std::int64_t sensorSide) -> IntegerNode&
    {
        auto& node = features.Add<IntegerNode>(name, 0, IntegerNode::Limits{0, 0}, increment);
        node.LimitedBy(
            [&side, sensorSide, increment]
            {
                const std::int64_t room = sensorSide - side.Current();
                return IntegerNode::Limits{0, room - room % increment};
            });
        LockWhileStreaming(node);
        return node;
    };
    m_offsetX = &offset("OffsetX", *m_width, sensor.width);
    m_offsetY = &offset("OffsetY", *m_height, sensor.height);
}

IntegerNode& ImageControl::AddSide(FeatureMap& features, const char* name, std::uint32_t sensorSide,
                                   IntegerNode** offset)
{
    const std::int64_t increment = m_config.sizeIncrement;
    const auto largest = [increment, sensorSide](std::int64_t start)
    { return (sensorSide - start) / increment * increment; };
    auto& node = features.Add<IntegerNode>(name, largest(0), IntegerNode::Limits{SmallestSide, largest(0)}, increment);
    node.LimitedBy([largest, offset] { return IntegerNode::Limits{SmallestSide, largest((*offset)->Current())}; });
    LockWhileStreaming(node);
    return node;
}

void ImageControl::AddMirroring(FeatureMap& features)
{
    m_reverseX = m_config.reverseX ? AddReverse(features, "ReverseX", &Mirroring::x) : nullptr;
    m_reverseY = m_config.reverseY ? AddReverse(features, "ReverseY", &Mirroring::y) : nullptr;
}

BooleanNode* ImageControl::AddReverse(FeatureMap& features, const char* name, bool Mirroring::*side)
{
    auto& node = features.Add<BooleanNode>(name, false);
    LockWhileStreaming(node);
    node.OnWrite(
        [this, side](bool value)
        {
            Mirroring next = CurrentMirroring();
            next.*side = value;
            ChangeMirroring(next);
            return ZltErrorSuccess;
        });
    return &node;
}

void ImageControl::AddPixelFormat(FeatureMap& features)
{
    std::vector<EnumNode::Entry> entries;
    for (const Mirroring mirroring : {Mirroring{false, false}, {true, false}, {false, true}, {true, true}})
    {
        if ((mirroring.x && !m_reverseX) || (mirroring.y && !m_reverseY))
        {
            continue;
        }
        for (const std::uint32_t format : Formats(mirroring))
        {
            const std::int64_t number = format;
            const bool isNew = std::none_of(entries.begin(), entries.end(),
                                            [&](const EnumNode::Entry& entry) { return entry.number == number; });
            if (isNew)
            {
                entries.push_back({PixelFormatName(format), number,
                                   [this, format]
                                   {
                                       const auto formats = Formats(CurrentMirroring());
                                       return std::find(formats.begin(), formats.end(), format) != formats.end();
                                   }});
            }
        }
    }
    // What sister models have, and this one's converter cannot give.
    const std::uint32_t deeper =
        m_config.sensor.filter == ColorFilter::Mono ? ZltPixelFormatMono14 : ZltPixelFormatRGBa8;
    entries.push_back({PixelFormatName(deeper), deeper, [] { return false; }});
    const std::string first = entries.front().name;
    m_pixelFormat = &features.Add<EnumNode>("PixelFormat", first, std::move(entries));
    LockWhileStreaming(*m_pixelFormat);
    auto& payload =
        features.Add<IntegerNode>("PayloadSize", 0, IntegerNode::Limits{0, std::numeric_limits<std::int64_t>::max()});
    payload.OnRead([this] { return static_cast<std::int64_t>(Settings().payloadSize); });
    payload.ReadOnly();
}

void ImageControl::AddExposure(FeatureMap& features)
{
    const auto kept = [&](const char* name, double value, FloatNode::Limits limits, double increment) -> FloatNode*
    {
        auto& node = features.Add<FloatNode>(name, value, limits, increment);
        node.KeepWhilePowered();
        return &node;
    };
    const auto automatic = [&](const char* name, FloatNode& manual) -> Follower
    {
        auto& node = features.Add<EnumNode>(name, "Off", std::vector<std::string>{"Off", "Once", "Continuous"});
        node.KeepWhilePowered();
        manual.WritableIf([&node] { return node.Current() == "Off"; });
        return {&manual, &node};
    };
    m_exposure = kept(m_config.exposureFeature.c_str(), 10'000.0, {ShortestExposure, LongestExposure}, 1.0);
    m_autoExposure = automatic("ExposureAuto", *m_exposure);
    m_gain = kept("Gain", 0.0, {0.0, HighestGain}, 0.1);
    m_autoGain = automatic("GainAuto", *m_gain);
    m_blackLevel = kept("BlackLevel", 0.0, {0.0, 255.0}, 0.0);
    m_gamma = kept("Gamma", 1.0, {0.4, 2.4}, 0.0);
    m_frameRate = kept("AcquisitionFrameRate", m_config.frameRate, {1.0, m_config.frameRate}, 0.0);
    m_frameRate->OnRead([this] { return FrameRate(); });
    m_temperature = &features.Add<FloatNode>("DeviceTemperature", SensorTemperature, FloatNode::Limits{-40.0, 100.0});
    m_temperature->ReadOnly();
    if (m_hooks.temperature)
    {
        m_temperature->OnRead(m_hooks.temperature);
    }
}

double ImageControl::FrameRate() const
{
    return std::min(m_frameRate->Chosen(), 1'000'000.0 / m_exposure->Current());
}

std::vector<std::uint32_t> ImageControl::Formats(Mirroring mirroring) const
{
    const SensorConfig& sensor = m_config.sensor;
    return FrameFormats(MirroredFilter(sensor.filter, sensor.width, sensor.height, mirroring.x, mirroring.y));
}

Mirroring ImageControl::CurrentMirroring() const
{
    return {m_reverseX && m_reverseX->Current(), m_reverseY && m_reverseY->Current()};
}

void ImageControl::ChangeMirroring(Mirroring next)
{
    // The colour filter turns with the image: the same place in the new list is the same kind of format.
    const auto before = Formats(CurrentMirroring());
    const auto after = Formats(next);
    const auto place = std::find(before.begin(), before.end(), CurrentFormat()) - before.begin();
    const auto& format =
        static_cast<std::size_t>(place) < after.size() ? after[static_cast<std::size_t>(place)] : after[0];
    m_pixelFormat->Assign(PixelFormatName(format));
    m_hooks.mirroringChanged();
}

void ImageControl::Recall()
{
    if (!m_pixelFormat->Restore(m_pixelFormat->Current()))
    {
        m_pixelFormat->Assign(PixelFormatName(Formats(CurrentMirroring()).front()));
    }
}

ImageSettings ImageControl::Settings() const
{
    const auto pixels = [](const IntegerNode* node) { return static_cast<std::uint32_t>(node->Current()); };
    ImageSettings settings;
    settings.mirroring = CurrentMirroring();
    settings.geometry = {m_config.sensor.width, m_config.sensor.height, pixels(m_offsetX),    pixels(m_offsetY),
                         pixels(m_width),       pixels(m_height),       settings.mirroring.x, settings.mirroring.y};
    settings.pixelFormat = CurrentFormat();
    settings.payloadSize = FrameSize(settings.pixelFormat, settings.geometry.width, settings.geometry.height);
    settings.exposure.exposureUs = m_exposure->Current();
    settings.exposure.gainDb = m_gain->Current();
    // In steps, so that frames of almost the same temperature share what the sensor works out for it.
    settings.exposure.temperatureC = std::round(m_temperature->Current() * TemperatureSteps) / TemperatureSteps;
    settings.exposure.blackLevel = m_blackLevel->Current();
    settings.exposure.gamma = m_gamma->Current();
    settings.framePeriod = std::chrono::microseconds(std::llround(1'000'000.0 / FrameRate()));
    return settings;
}

bool ImageControl::IsAdapting() const
{
    return m_autoExposure.IsFollowing() || m_autoGain.IsFollowing();
}

double ImageControl::Follower::Exact()
{
    double increment = 0.0;
    node->Increment(increment);
    const double current = node->Current();
    exact = std::abs(exact - current) > increment ? current : exact;
    return exact;
}

void ImageControl::Follower::Move(double value)
{
    exact = value;
    node->AssignClamped(value);
}

void ImageControl::Follower::Finish()
{
    if (mode->Current() == "Once")
    {
        mode->Assign("Off");
    }
}

void ImageControl::Adapt(double mean, std::chrono::microseconds elapsed)
{
    const double wanted = std::clamp(TargetMean / std::max(mean, 1.0), 1.0 / LargestError, LargestError);
    const bool isClose = std::abs(wanted - 1.0) < CloseEnough;
    const double time = std::min(std::chrono::duration<double>(elapsed).count(), LongestReaction);
    const double change = isClose ? 1.0 : std::pow(wanted, 1.0 - std::exp(-time / ReactionTime));
    // Whether a feature at its end is asked to go further.
    const auto isSpent = [change](double value, double lowest, double highest)
    { return (change > 1.0 && value >= highest) || (change < 1.0 && value <= lowest); };
    bool gainMayMove = true; // only where the exposure cannot
    if (m_autoExposure.IsFollowing())
    {
        const double exposure = std::clamp(m_autoExposure.Exact() * change, ShortestExposure, LongestAutoExposure);
        m_autoExposure.Move(exposure);
        gainMayMove = isClose || isSpent(exposure, ShortestExposure, LongestAutoExposure);
        if (gainMayMove)
        {
            m_autoExposure.Finish();
        }
    }
    if (m_autoGain.IsFollowing() && gainMayMove)
    {
        const double gain = std::clamp(m_autoGain.Exact() + 20.0 * std::log10(change), 0.0, HighestGain);
        m_autoGain.Move(gain);
        if (isClose || isSpent(gain, 0.0, HighestGain))
        {
            m_autoGain.Finish();
        }
    }
}

} // namespace Simulation
