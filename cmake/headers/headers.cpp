// Gives precompiled headers something to belong to.
