// The requests of the contract as messages: which they are, and where their records and texts lie.
#pragma once

#include <ghosthand/host_contract.h>

#include <cstddef>
#include <span>
#include <windows.h>

namespace sample_host {

bool IsContractRequest(UINT message);

// The record that the request's lParam points at; empty for a request without one. For a query of the
// group combo, the query.
std::span<const std::byte> RecordOf(const MSG& request);

// The text buffer in the record, null for a request without text.
ghosthand::host_contract::TextBuffer* TextBufferOf(const MSG& request);

} // namespace sample_host
