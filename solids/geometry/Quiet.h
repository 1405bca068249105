#pragma once

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>

namespace geometry {

/// Suppresses the modeller's messages on the standard output until it is destroyed.
class Quiet {
public:
    Quiet() : m_printers(Message::DefaultMessenger()->Printers()) {
        Message::DefaultMessenger()->ChangePrinters().Clear();
    }
    ~Quiet() { Message::DefaultMessenger()->ChangePrinters() = m_printers; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    Message_SequenceOfPrinters m_printers;
};

}  // namespace geometry
