#include "XmlDescription.h"

#include "PixelFormats.h"
#include "ZipArchive.h"

#include <cstdio>

namespace gigeemu {

namespace {
std::string hexAddress(std::uint32_t a)
{
    char buf[16];
    std::snprintf(buf, sizeof buf, "0x%04X", a);
    return buf;
}

std::string escape(const std::string& s)
{
    std::string out;
    for (char c : s) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
    return out;
}

const char* kRegisterTail = "<pPort>Device</pPort><Cachable>NoCache</Cachable>";
} // namespace

CXmlDescription::CXmlDescription(const SConfig& config)
    : m_config(config)
{
    const SConfig& c = config;
    const bool limit = c.throughputLimit;
    m_text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
             "<RegisterDescription ModelName=\"" + escape(c.model) + "\" VendorName=\"" + escape(c.vendor)
        + "\" ToolTip=\"Emulated GigE Vision camera\" StandardNameSpace=\"GEV\""
          " SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\" SchemaSubMinorVersion=\"0\""
          " MajorVersion=\"1\" MinorVersion=\"0\" SubMinorVersion=\"0\""
          " ProductGuid=\"5B1C0E6A-6B0E-4C39-9C4F-0E6D5A1A2B01\" VersionGuid=\"5B1C0E6A-6B0E-4C39-9C4F-0E6D5A1A2B02\""
          " xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n";

    category("Root", {"DeviceControl", "ImageFormatControl", "AcquisitionControl", "TransportLayerControl",
                      "EmulatorStatistics"});
    std::vector<std::string> device = {"DeviceVendorName", "DeviceModelName", "DeviceVersion",
                                       "DeviceManufacturerInfo", "DeviceSerialNumber", "DeviceUserID",
                                       "DeviceLinkSelector", "DeviceLinkSpeed"};
    if (limit) {
        device.push_back("DeviceLinkThroughputLimitMode");
        device.push_back("DeviceLinkThroughputLimit");
    }
    category("DeviceControl", device);
    category("ImageFormatControl", {"SensorWidth", "SensorHeight", "Width", "Height", "PixelFormat"});
    category("AcquisitionControl", {"AcquisitionMode", "AcquisitionStart", "AcquisitionStop",
                                    "AcquisitionFrameRateEnable", "AcquisitionFrameRate", "ResultingFrameRate",
                                    "TriggerSelector", "TriggerMode", "TriggerSource", "TriggerSoftware",
                                    "PayloadSize"});
    category("TransportLayerControl", {"GevSCPSPacketSize", "GevSCPSDoNotFragment", "GevSCPSFireTestPacket",
                                       "GevSCPHostPort", "GevSCDA", "GevSCPD", "GevSCFTD", "GevSCDCT",
                                       "GevHeartbeatTimeout", "GevLinkSpeed", "GevTimestampTickFrequency"});
    category("EmulatorStatistics", {"EmulatorFramesProduced", "EmulatorPacketsSent", "EmulatorPacketsDroppedForSize",
                                    "EmulatorPacketsLost", "EmulatorPacketsResent", "EmulatorTestPacketsSent",
                                    "EmulatorFramesSent", "EmulatorControlCommands"});

    stringReg("DeviceVendorName", 0x0048, 32, "RO");
    stringReg("DeviceModelName", 0x0068, 32, "RO");
    stringReg("DeviceVersion", 0x0088, 32, "RO");
    stringReg("DeviceManufacturerInfo", 0x00A8, 48, "RO");
    stringReg("DeviceSerialNumber", 0x00D8, 16, "RO");
    stringReg("DeviceUserID", 0x00E8, 16, "RW");

    integer("DeviceLinkSelector", "DeviceLinkSelectorReg", "<Min>0</Min><Max>0</Max>");
    intReg("DeviceLinkSelectorReg", 0xA400, "RW");
    m_text += "<IntSwissKnife Name=\"DeviceLinkSpeed\" NameSpace=\"Standard\"><pVariable Name=\"S\">GevLinkSpeed"
              "</pVariable><Formula>S*125000</Formula><Unit>Bps</Unit></IntSwissKnife>\n";
    if (limit) {
        enumeration("DeviceLinkThroughputLimitMode", "DeviceLinkThroughputLimitModeReg", {{"Off", 0}, {"On", 1}});
        intReg("DeviceLinkThroughputLimitModeReg", 0xA404, "RW");
        integer("DeviceLinkThroughputLimit", "DeviceLinkThroughputLimitReg",
                "<Min>1000000</Min><pMax>DeviceLinkSpeed</pMax>", "<Unit>Bps</Unit>");
        intReg("DeviceLinkThroughputLimitReg", 0xA408, "RW");
    }

    integer("SensorWidth", "SensorWidthReg", "<Min>0</Min><Max>65535</Max>");
    intReg("SensorWidthReg", 0xA010, "RO");
    integer("SensorHeight", "SensorHeightReg", "<Min>0</Min><Max>65535</Max>");
    intReg("SensorHeightReg", 0xA014, "RO");
    integer("Width", "WidthReg", "<Min>16</Min><pMax>SensorWidth</pMax><Inc>4</Inc>");
    intReg("WidthReg", 0xA000, "RW");
    integer("Height", "HeightReg", "<Min>1</Min><pMax>SensorHeight</pMax><Inc>1</Inc>");
    intReg("HeightReg", 0xA004, "RW");
    std::vector<std::pair<std::string, std::uint32_t>> formats;
    for (const auto& f : kPixelFormats)
        formats.emplace_back(f.name, f.code);
    enumeration("PixelFormat", "PixelFormatReg", formats);
    intReg("PixelFormatReg", 0xA008, "RW");
    integer("PayloadSize", "PayloadSizeReg", "<Min>0</Min><Max>4294967295</Max>");
    intReg("PayloadSizeReg", 0xA00C, "RO");

    enumeration("AcquisitionMode", "AcquisitionModeReg", {{"Continuous", 0}, {"SingleFrame", 1}});
    intReg("AcquisitionModeReg", 0xA100, "RW");
    command("AcquisitionStart", "AcquisitionStartReg");
    intReg("AcquisitionStartReg", 0xA104, "WO");
    command("AcquisitionStop", "AcquisitionStopReg");
    intReg("AcquisitionStopReg", 0xA108, "WO");
    m_text += "<Boolean Name=\"AcquisitionFrameRateEnable\" NameSpace=\"Standard\"><pValue>"
              "AcquisitionFrameRateEnableReg</pValue><OnValue>1</OnValue><OffValue>0</OffValue></Boolean>\n";
    intReg("AcquisitionFrameRateEnableReg", 0xA10C, "RW");
    m_text += "<Float Name=\"AcquisitionFrameRate\" NameSpace=\"Standard\"><pValue>AcquisitionFrameRateReg</pValue>"
              "<Min>0.1</Min><pMax>AcquisitionFrameRateMaxReg</pMax><Unit>Hz</Unit></Float>\n";
    floatReg("AcquisitionFrameRateReg", 0xA110, "RW");
    floatReg("AcquisitionFrameRateMaxReg", 0xA114, "RO");
    m_text += "<Float Name=\"ResultingFrameRate\" NameSpace=\"Standard\"><pValue>ResultingFrameRateReg</pValue>"
              "<Min>0</Min><Max>1000</Max><Unit>Hz</Unit></Float>\n";
    floatReg("ResultingFrameRateReg", 0xA118, "RO");
    enumeration("TriggerSelector", "TriggerSelectorReg", {{"FrameStart", 0}, {"AcquisitionStart", 1}});
    intReg("TriggerSelectorReg", 0xA200, "RW");
    enumeration("TriggerMode", "TriggerModeReg", {{"Off", 0}, {"On", 1}});
    enumeration("TriggerSource", "TriggerSourceReg", {{"Line0", 0}, {"Software", 1}});
    for (const auto& [name, address] : {std::pair<std::string, std::uint32_t>{"TriggerModeReg", 0xA204},
                                        {"TriggerSourceReg", 0xA208}}) {
        m_text += "<IntReg Name=\"" + name + "\"><Address>" + hexAddress(address)
            + "</Address><pIndex Offset=\"0x10\">TriggerSelectorReg</pIndex><Length>4</Length>"
              "<AccessMode>RW</AccessMode>" + kRegisterTail + "<Sign>Unsigned</Sign><Endianess>BigEndian</Endianess></IntReg>\n";
    }
    command("TriggerSoftware", "TriggerSoftwareReg");
    intReg("TriggerSoftwareReg", 0xA220, "WO");

    integer("GevSCPSPacketSize", "GevSCPSPacketSizeReg",
            "<Min>576</Min><Max>" + std::to_string(c.maxPacketSize) + "</Max><Inc>4</Inc>");
    maskedReg("GevSCPSPacketSizeReg", 0x0D04, "<LSB>31</LSB><MSB>16</MSB>");
    m_text += "<Boolean Name=\"GevSCPSDoNotFragment\" NameSpace=\"Standard\"><pValue>GevSCPSDoNotFragmentReg"
              "</pValue><OnValue>1</OnValue><OffValue>0</OffValue></Boolean>\n";
    maskedReg("GevSCPSDoNotFragmentReg", 0x0D04, "<Bit>1</Bit>");
    command("GevSCPSFireTestPacket", "GevSCPSFireTestPacketReg");
    maskedReg("GevSCPSFireTestPacketReg", 0x0D04, "<Bit>0</Bit>");
    integer("GevSCPHostPort", "GevSCPHostPortReg", "<Min>0</Min><Max>65535</Max>");
    maskedReg("GevSCPHostPortReg", 0x0D00, "<LSB>31</LSB><MSB>16</MSB>");
    integer("GevSCDA", "GevSCDAReg", "<Min>0</Min><Max>4294967295</Max>");
    intReg("GevSCDAReg", 0x0D18, "RW");
    const std::string delayMax = std::to_string(c.tickHz / 100);
    integer("GevSCPD", "GevSCPDReg", "<Min>0</Min><Max>" + delayMax + "</Max><Inc>1</Inc>",
            limit ? "<pIsLocked>DeviceLinkThroughputLimitModeReg</pIsLocked>" : "");
    intReg("GevSCPDReg", 0x0D08, "RW");
    integer("GevSCFTD", "GevSCFTDReg", "<Min>0</Min><Max>" + delayMax + "</Max><Inc>1</Inc>");
    intReg("GevSCFTDReg", 0xA300, "RW");
    integer("GevSCDCT", "GevSCDCTReg", "<Min>0</Min><Max>4294967295</Max>", "<Unit>Bps</Unit>");
    intReg("GevSCDCTReg", 0xA304, "RO");
    integer("GevHeartbeatTimeout", "GevHeartbeatTimeoutReg", "<Min>500</Min><Max>600000</Max>", "<Unit>ms</Unit>");
    intReg("GevHeartbeatTimeoutReg", 0x0938, "RW");
    integer("GevLinkSpeed", "GevLinkSpeedReg", "<Min>0</Min><Max>4294967295</Max>", "<Unit>Mbps</Unit>");
    intReg("GevLinkSpeedReg", 0x0670, "RO");
    m_text += "<IntSwissKnife Name=\"GevTimestampTickFrequency\" NameSpace=\"Standard\">"
              "<pVariable Name=\"HI\">TickHighReg</pVariable><pVariable Name=\"LO\">TickLowReg</pVariable>"
              "<Formula>(HI&lt;&lt;32)+LO</Formula><Unit>Hz</Unit></IntSwissKnife>\n";
    intReg("TickHighReg", 0x093C, "RO");
    intReg("TickLowReg", 0x0940, "RO");

    const std::pair<const char*, std::uint32_t> counters[] = {
        {"EmulatorFramesProduced", 0xA500}, {"EmulatorPacketsSent", 0xA504},
        {"EmulatorPacketsDroppedForSize", 0xA508}, {"EmulatorPacketsLost", 0xA50C},
        {"EmulatorPacketsResent", 0xA510}, {"EmulatorTestPacketsSent", 0xA514},
        {"EmulatorFramesSent", 0xA518}, {"EmulatorControlCommands", 0xA51C}};
    for (const auto& [name, address] : counters) {
        integer(name, std::string(name) + "Reg", "<Min>0</Min><Max>4294967295</Max>");
        intReg(std::string(name) + "Reg", address, "RO");
    }

    m_text += "<Port Name=\"Device\" NameSpace=\"Standard\"/>\n</RegisterDescription>\n";
}

std::string CXmlDescription::fileName() const
{
    return m_config.xmlZip ? "gige-emulator.zip" : "gige-emulator.xml";
}

std::vector<std::uint8_t> CXmlDescription::blob() const
{
    if (m_config.xmlZip)
        return zipOneFile("gige-emulator.xml", m_text);
    return std::vector<std::uint8_t>(m_text.begin(), m_text.end());
}

void CXmlDescription::category(const std::string& name, const std::vector<std::string>& features)
{
    m_text += "<Category Name=\"" + name + "\" NameSpace=\"Standard\">";
    for (const auto& f : features)
        m_text += "<pFeature>" + f + "</pFeature>";
    m_text += "</Category>\n";
}

void CXmlDescription::intReg(const std::string& name, std::uint32_t address, const char* access)
{
    m_text += "<IntReg Name=\"" + name + "\"><Address>" + hexAddress(address)
        + "</Address><Length>4</Length><AccessMode>" + access + "</AccessMode>" + kRegisterTail
        + "<Sign>Unsigned</Sign><Endianess>BigEndian</Endianess></IntReg>\n";
}

void CXmlDescription::integer(const std::string& name, const std::string& reg, const std::string& limits,
                              const std::string& extra)
{
    const bool locked = extra.find("pIsLocked") != std::string::npos;
    m_text += "<Integer Name=\"" + name + "\" NameSpace=\"Standard\">" + (locked ? extra : "") + "<pValue>" + reg
        + "</pValue>" + limits + (locked ? "" : extra) + "</Integer>\n";
}

void CXmlDescription::maskedReg(const std::string& name, std::uint32_t address, const std::string& bits)
{
    m_text += "<MaskedIntReg Name=\"" + name + "\"><Address>" + hexAddress(address)
        + "</Address><Length>4</Length><AccessMode>RW</AccessMode>" + kRegisterTail + bits
        + "<Sign>Unsigned</Sign><Endianess>BigEndian</Endianess></MaskedIntReg>\n";
}

void CXmlDescription::enumeration(const std::string& name, const std::string& reg,
                                  const std::vector<std::pair<std::string, std::uint32_t>>& entries)
{
    m_text += "<Enumeration Name=\"" + name + "\" NameSpace=\"Standard\">";
    for (const auto& [entry, value] : entries)
        m_text += "<EnumEntry Name=\"" + entry + "\"><Value>" + std::to_string(value) + "</Value></EnumEntry>";
    m_text += "<pValue>" + reg + "</pValue></Enumeration>\n";
}

void CXmlDescription::command(const std::string& name, const std::string& reg)
{
    m_text += "<Command Name=\"" + name + "\" NameSpace=\"Standard\"><pValue>" + reg
        + "</pValue><CommandValue>1</CommandValue></Command>\n";
}

void CXmlDescription::floatReg(const std::string& name, std::uint32_t address, const char* access)
{
    m_text += "<FloatReg Name=\"" + name + "\"><Address>" + hexAddress(address)
        + "</Address><Length>4</Length><AccessMode>" + access + "</AccessMode>" + kRegisterTail
        + "<Endianess>BigEndian</Endianess></FloatReg>\n";
}

void CXmlDescription::stringReg(const std::string& name, std::uint32_t address, std::uint32_t length,
                                const char* access)
{
    m_text += "<StringReg Name=\"" + name + "\" NameSpace=\"Standard\"><Address>" + hexAddress(address)
        + "</Address><Length>" + std::to_string(length) + "</Length><AccessMode>" + access
        + "</AccessMode><pPort>Device</pPort></StringReg>\n";
}

} // namespace gigeemu
