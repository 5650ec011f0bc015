// Gives the precompiled headers of the tests something to belong to.
