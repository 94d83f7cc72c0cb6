#pragma once

/// Ends an exception at the edge of the module: called in the catch-all of each operation that the engine calls. Says
/// in the engine's log which operation gave up, and asks for no memory to do so. What the operation gives then is what
/// it gives for any other failure; those that give nothing have done a part of their work or none.
void keep_inside(const wchar_t* operation) noexcept;
