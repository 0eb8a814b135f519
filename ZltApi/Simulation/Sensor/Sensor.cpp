// The sensor's physics. All that frames have in common is worked out beforehand; a frame adds noise to it.
#include "Sensor.h"

#include "DarkFrameFile.h"
#include "Random.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace Simulation
{

namespace
{

constexpr float DarkCountsMean = 1.5F; // at the reference exposure
constexpr float DarkSpread = 0.3F;     // share by which the dark current of good pixels differs
constexpr float LightSpread = 0.006F;  // share by which their sensitivity differs
constexpr float ReadNoiseCounts = 4.0F;
constexpr float ElectronsPerCount = 8.0F; // at 0 dB

// Fixed-point units of the arrays: 16-bit numbers keep the sum of a frame in the widest vectors.
constexpr float LightUnits = 128.0F;  // for one step of the scene's 255
constexpr int MeanBits = 2;           // below one count
constexpr float NoiseUnits = 4096.0F; // for one deviation
constexpr int ProductShift = 16;
constexpr float DeviationUnits = static_cast<float>(1 << (ProductShift + MeanBits)) / NoiseUnits; // for one count
// Beyond saturation a pixel stays saturated whatever its noise. Six deviations above the largest mean still fit 16
// bits.
constexpr float LargestMean = 5500.0F;
constexpr float LargestDeviation = 400.0F;

constexpr std::uint32_t NoiseRange = 1U << 18U;
constexpr std::uint64_t SpreadStream = 1;
constexpr std::uint64_t NoiseStream = 2;
constexpr std::uint64_t FirstFrameStream = 1000;

const SensorConfig& Checked(const SensorConfig& config)
{
    const auto usable = [](std::uint32_t side) { return side >= 1 && side <= MaxSensorSide; };
    if (!usable(config.width) || !usable(config.height))
    {
        throw std::runtime_error("A sensor of " + std::to_string(config.width) + " x " + std::to_string(config.height) +
                                 " pixels cannot be simulated: each side must have 1 to " +
                                 std::to_string(MaxSensorSide) + " pixels.");
    }
    if (!config.darkFrameFile.empty() && !(config.darkFrameExposureUs > 0.0))
    {
        throw std::runtime_error("The exposure time of a recorded dark frame must be longer than 0 microseconds.");
    }
    return config;
}

// Limits that also settle what is not a number.
float Limited(float value, float largest)
{
    const float below = value < largest ? value : largest;
    return below > 0.0F ? below : 0.0F;
}

void DevelopPixels(const std::uint16_t* __restrict light, const float* __restrict dark, std::size_t size, float offset,
                   float perLight, float perDark, float readVariance, float shotVariance, std::int16_t* __restrict mean,
                   std::int16_t* __restrict deviation)
{
    for (std::size_t i = 0; i < size; ++i)
    {
        const float signal = perLight * static_cast<float>(light[i]) + perDark * dark[i];
        const float level = Limited(offset + signal, LargestMean);
        const float noise =
            Limited(std::sqrt(readVariance + shotVariance * Limited(signal, LargestMean)), LargestDeviation);
        mean[i] = static_cast<std::int16_t>(level * static_cast<float>(1 << MeanBits));
        deviation[i] = static_cast<std::int16_t>(noise * DeviationUnits);
    }
}

void AddNoise(const std::int16_t* __restrict mean, const std::int16_t* __restrict deviation,
              const std::int16_t* __restrict noise, std::size_t size, std::uint16_t* __restrict raw)
{
    constexpr std::int16_t Largest = MaxCount << MeanBits;
    constexpr std::int16_t Half = 1 << (MeanBits - 1);
    for (std::size_t i = 0; i < size; ++i)
    {
        const auto change = static_cast<std::int16_t>(deviation[i] * noise[i] >> ProductShift);
        auto value = static_cast<std::int16_t>(mean[i] + change + Half);
        value = std::max<std::int16_t>(value, 0);
        value = std::min<std::int16_t>(value, Largest);
        raw[i] = static_cast<std::uint16_t>(value >> MeanBits);
    }
}

} // namespace

bool Sensor::Response::operator==(const Response& other) const
{
    return offset == other.offset && perLight == other.perLight && perDark == other.perDark &&
           readVariance == other.readVariance && shotVariance == other.shotVariance;
}

Sensor::Sensor(const SensorConfig& config)
    : m_config(Checked(config)),
      m_scene(config.width, config.height, config.scene)
{
    MakeLight();
    LoadDarkSignal();
    MakeNoise();
}

void Sensor::LoadDarkSignal()
{
    if (m_config.darkFrameFile.empty())
    {
        m_faults = SeedFaults(m_config.width, m_config.height, m_config.seed, m_config.longestRun);
        for (const PixelFault& fault : m_faults)
        {
            m_dark[static_cast<std::size_t>(fault.y) * m_config.width + fault.x] += static_cast<float>(fault.signal);
        }
        return;
    }
    const DarkFrame frame = ReadDarkFrame(m_config.darkFrameFile, m_config.width, m_config.height);
    const auto scale = static_cast<float>(ReferenceExposureUs / m_config.darkFrameExposureUs);
    for (std::uint32_t y = 0; y < frame.height; ++y)
    {
        const auto row = frame.counts.begin() + static_cast<std::ptrdiff_t>(y) * frame.width;
        std::transform(row, row + frame.width, m_dark.begin() + static_cast<std::ptrdiff_t>(y) * m_config.width,
                       [scale](float counts) { return counts * scale; });
    }
}

// The brightness of a colour in units of m_light, through the filter of that pixel.
float Sensor::Brightness(const SceneColor& color, std::uint32_t x, std::uint32_t y) const
{
    switch (FilterChannel(m_config.filter, x, y))
    {
    case ColorChannel::Red:
        return LightUnits * static_cast<float>(color.red);
    case ColorChannel::Green:
        return LightUnits * static_cast<float>(color.green);
    case ColorChannel::Blue:
        return LightUnits * static_cast<float>(color.blue);
    case ColorChannel::All:
        break;
    }
    return LightUnits * static_cast<float>(SceneLuminance(color));
}

void Sensor::MakeLight()
{
    const std::size_t pixels = static_cast<std::size_t>(m_config.width) * m_config.height;
    m_light.reserve(pixels);
    m_dark.reserve(pixels);
    Random random(m_config.seed, SpreadStream);
    for (std::uint32_t y = 0; y < m_config.height; ++y)
    {
        for (std::uint32_t x = 0; x < m_config.width; ++x)
        {
            const auto spread = static_cast<float>(random.Between(-1.0, 1.0));
            m_light.push_back(
                static_cast<std::uint16_t>(Brightness(m_scene.At(x, y), x, y) * (1.0F + LightSpread * spread)));
            const auto darkSpread = static_cast<float>(random.Between(-1.0, 1.0));
            m_dark.push_back(DarkCountsMean * (1.0F + DarkSpread * darkSpread));
        }
    }
}

void Sensor::MakeNoise()
{
    Random random(m_config.seed, NoiseStream);
    m_noise.reserve(NoiseRange + m_config.width);
    std::generate_n(std::back_inserter(m_noise), NoiseRange + m_config.width,
                    [&random] { return static_cast<std::int16_t>(random.Normal() * NoiseUnits); });
}

Sensor::Response Sensor::ResponseTo(const ExposureSettings& settings) const
{
    const double gain = std::pow(10.0, settings.gainDb / 20.0);
    const double exposure = settings.exposureUs / ReferenceExposureUs;
    const double heat = std::exp2((settings.temperatureC - ReferenceTemperatureC) / DarkDoublingKelvin);
    const double readNoise = ReadNoiseCounts * gain;
    Response response;
    response.offset = static_cast<float>(PedestalCounts + settings.blackLevel);
    response.perLight =
        settings.covered ? 0.0F : static_cast<float>(SceneWhiteCounts / 255.0 / LightUnits * exposure * gain);
    response.perDark = static_cast<float>(exposure * gain * heat * m_config.darkCurrent);
    response.readVariance = static_cast<float>(readNoise * readNoise);
    response.shotVariance = static_cast<float>(gain / ElectronsPerCount);
    return response;
}

void Sensor::Develop(const Response& response)
{
    if (response == m_response && !m_mean.empty())
    {
        return;
    }
    m_response = response;
    m_mean.resize(m_light.size());
    m_deviation.resize(m_light.size());
    DevelopPixels(m_light.data(), m_dark.data(), m_light.size(), response.offset, response.perLight, response.perDark,
                  response.readVariance, response.shotVariance, m_mean.data(), m_deviation.data());
    for (const PixelFault& fault : m_faults)
    {
        if (fault.kind == FaultKind::Dead)
        {
            const std::size_t pixel = static_cast<std::size_t>(fault.y) * m_config.width + fault.x;
            m_mean[pixel] = 0;
            m_deviation[pixel] = 0;
        }
    }
}

// Where in the stock the noise of a row begins.
std::uint32_t Sensor::NoiseStart(const ExposureSettings& settings, std::uint32_t y) const
{
    Random random(m_config.seed, FirstFrameStream + settings.frameNumber * MaxSensorSide + y);
    return random.Below(NoiseRange);
}

void Sensor::Expose(const ExposureSettings& settings, std::vector<std::uint16_t>& raw)
{
    Develop(ResponseTo(settings));
    raw.resize(m_mean.size());
    for (std::uint32_t y = 0; y < m_config.height; ++y)
    {
        const std::size_t row = static_cast<std::size_t>(y) * m_config.width;
        AddNoise(&m_mean[row], &m_deviation[row], &m_noise[NoiseStart(settings, y)], m_config.width, &raw[row]);
    }
    if (!settings.covered)
    {
        DrawDisc(settings, raw);
    }
    if (settings.gamma != 1.0)
    {
        ApplyGamma(settings.gamma, raw);
    }
}

// The disc hides what the resting scene shows behind it, so its pixels are exposed once more.
void Sensor::DrawDisc(const ExposureSettings& settings, std::vector<std::uint16_t>& raw) const
{
    const SceneRect area = m_scene.DiscArea(settings.frameNumber);
    for (std::uint32_t y = area.y; y < area.y + area.height; ++y)
    {
        const std::int16_t* noise = &m_noise[NoiseStart(settings, y)];
        for (std::uint32_t x = area.x; x < area.x + area.width; ++x)
        {
            const std::size_t pixel = static_cast<std::size_t>(y) * m_config.width + x;
            const bool dead = m_deviation[pixel] == 0;
            if (dead || !Scene::OnDisc(area, x, y))
            {
                continue;
            }
            const auto light = static_cast<std::uint16_t>(Brightness(SceneDisc, x, y));
            std::int16_t mean = 0;
            std::int16_t deviation = 0;
            DevelopPixels(&light, &m_dark[pixel], 1, m_response.offset, m_response.perLight, m_response.perDark,
                          m_response.readVariance, m_response.shotVariance, &mean, &deviation);
            AddNoise(&mean, &deviation, &noise[x], 1, &raw[pixel]);
        }
    }
}

void Sensor::ApplyGamma(double gamma, std::vector<std::uint16_t>& raw)
{
    if (m_gammaTable.empty() || gamma != m_gamma)
    {
        m_gamma = gamma;
        m_gammaTable.resize(MaxCount + 1U);
        for (std::size_t i = 0; i < m_gammaTable.size(); ++i)
        {
            const double share = static_cast<double>(i) / MaxCount;
            m_gammaTable[i] = static_cast<std::uint16_t>(std::lround(MaxCount * std::pow(share, gamma)));
        }
    }
    for (std::uint16_t& count : raw)
    {
        count = m_gammaTable[count];
    }
}

} // namespace Simulation
