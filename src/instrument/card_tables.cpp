#include "instrument/daq_cards.h"

AdcCard AdcCards[kMaxCards];
u16 AdcCardsCount = 0;
DacCard DacCards[kMaxCards];
u16 DacCardsCount = 0;

void ResetCards() {
    for (AdcCard& card : AdcCards)
        card = AdcCard();
    for (DacCard& card : DacCards)
        card = DacCard();
    AdcCardsCount = 0;
    DacCardsCount = 0;
}
