#include "instrument/card_text.h"
#include "instrument/daq_cards.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/message_box.h"

#include <cstdarg>

const char kCardsStartupCaption[] = "DAC/ADC Initialization Error";
const char kCardsReportCaption[] = "Detected NIDAQ Cards";

int AppendFormat(char* text, size_t size, const char* format, ...) {
    char line[1024];
    va_list args;
    va_start(args, format);
    int n = VsnprintfC(line, sizeof line, format, args);
    va_end(args);
    int fit = BoundedAppend(text, line, size);
    return fit && n >= 0 && static_cast<size_t>(n) < sizeof line;
}

int DescribeVersion(char* text, size_t size) {
    if (size == 0) return 0;
    text[0] = 0;
    u32 version = 0;
    if (Daq().Get_NI_DAQ_Version(&version) == 0)
        return AppendFormat(text, size, "NI-DAQ version %04X detected.", version & 0xFFFFu);
    return BoundedCopy(text, "Get_NI_DAQ_Version() failed\n", size);
}

int DescribeDacs(char* text, size_t size) {
    if (size == 0) return 0;
    text[0] = 0;
    int fit = 1;
    for (unsigned i = 0; i < DacCardsCount; ++i) {
        const DacCard& card = DacCards[i];
        fit &= AppendFormat(text, size, "DAC_%02u:id=%u(%s), %u chanels\n", i, card.id,
                            card.name.c_str(), static_cast<unsigned>(card.channelCount));
    }
    return fit;
}

int DescribeAdcs(char* text, size_t size) {
    if (size == 0) return 0;
    text[0] = 0;
    int fit = 1;
    for (unsigned i = 0; i < AdcCardsCount; ++i) {
        const AdcCard& card = AdcCards[i];
        fit &= AppendFormat(text, size, "ADC_%02u:id=%u(%s), %u chanels\n", i, card.id,
                            card.name.c_str(), static_cast<unsigned>(ChannelCount(card)));
    }
    return fit;
}

int CardsStartupMessage(int result, const char* programName, char* text, size_t size) {
    if (size == 0) return 0;
    text[0] = 0;
    return AppendFormat(text, size,
                        "At least one DAC and one ADC card are required\nto run Vantrel. In your "
                        "system you have:\n[%c] no DACs\n[%c] no ADCs\n%s will show detailed "
                        "info in the next window and exit.",
                        result == 1 ? 'x' : ' ', result == 2 ? 'x' : ' ', programName);
}

void ShowCardsStartupFailure(void* window, int result, const char* programName,
                             const char* report) {
    char text[512];
    CardsStartupMessage(result, programName, text, sizeof text);
    MessageBoxBeep(window, text, kCardsStartupCaption, MB_OK | MB_ICONSTOP);
    MessageBoxBeep(window, report, kCardsReportCaption, MB_OK | MB_ICONINFORMATION);
}

int PrintCardsReport(const char* programDirectory, const char* programName, std::FILE* out,
                     std::FILE* err) {
    char report[kCardsReportSize];
    int result = DetectCards(report, sizeof report, programDirectory);
    if (result == 0) {
        std::fputs(report, out);
        return 0;
    }
    char message[512];
    CardsStartupMessage(result, programName, message, sizeof message);
    std::fprintf(err, "%s:\n%s\n\n%s:\n%s", kCardsStartupCaption, message, kCardsReportCaption,
                 report);
    return result;
}
