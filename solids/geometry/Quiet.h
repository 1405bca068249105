#pragma once

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>

namespace geometry {

/// Keeps what the modeller says off the standard output for as long as it lives.
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
