#pragma once

/// Whoever is told of a checkbox that was ticked or cleared.
class _CheckboxListener {
public:
    virtual ~_CheckboxListener() = default;

    /// `id` is the checkbox's number.
    virtual void check(unsigned int id, bool checked) = 0;
};
