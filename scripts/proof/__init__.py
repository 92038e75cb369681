"""The parts of scripts/prove. Each is a class with a `name`, an `amount` in words, and `run()`, which returns what is
to be remarked once it holds and raises Broken, or NotRun where it cannot be had here."""
